/* The exported calls as a C program sees them, through the shared library. */
#define _POSIX_C_SOURCE 200112L
#include "hosts/host.h"

#include <locale.h>

static int same(char const* text, char const* expected)
{
    int const is_same = text && strcmp(text, expected) == 0;
    if (!is_same)
        fprintf(stderr, "got:  %s\n", text ? text : "(null)");
    return is_same;
}

static vantrel* create(void)
{
    vantrel* report = vantrel_create(definition);
    CHECK(report && vantrel_has_error(report) == 0);
    CHECK(vantrel_error_message(report) == NULL);
    return report;
}

/* The latch: later failures leave the first message. */
static void check_latched(vantrel* report, char const* message)
{
    CHECK(vantrel_has_error(report) == 1);
    CHECK(vantrel_set_value_double(report, "other", 1) == VANTREL_REPORT_IN_ERROR);
    CHECK(vantrel_write_html(report, NULL) == VANTREL_REPORT_IN_ERROR);
    CHECK(same(vantrel_error_message(report), message));
}

/* A failing call on a report of its own. */
#define CHECK_FAILURE(call, code, message)                                                         \
    do {                                                                                           \
        vantrel* report = create();                                                                \
        CHECK((call) == (code));                                                                   \
        check_latched(report, message);                                                            \
        vantrel_free(report);                                                                      \
    } while (0)

static void check_failing_calls(void)
{
    char const bad_html[] = "invalid HTML sequence found in advice string";
    char* page = NULL;
    CHECK_FAILURE(vantrel_set_value_double(report, NULL, 1), VANTREL_UNKNOWN_METRIC,
                  "unknown metric: \"\"");
    CHECK_FAILURE(
        vantrel_set_value_int(report, "a", 1), VANTREL_WRONG_TYPE,
        "attempt to set the value for metric \"a\" to a \"int\". All user-defined metrics are "
        "of type \"double\" and must be set with vantrel_set_value_double(report,metricId,value).");
    CHECK_FAILURE(
        vantrel_set_value_int(report, CORVANE_APPLICATION_DETAIL_NUM_PROCESSES, 0),
        VANTREL_INVALID_COUNT,
        "0 is an invalid value for metric CORVANE_APPLICATION_DETAIL_NUM_PROCESSES. Value "
        "must be >= 1.");
    CHECK_FAILURE(vantrel_set_value_int(report, CORVANE_APPLICATION_DETAIL_NUM_NODES, -1),
                  VANTREL_INVALID_COUNT,
                  "-1 is an invalid value for metric CORVANE_APPLICATION_DETAIL_NUM_NODES. Value "
                  "must be >= 1.");
    CHECK_FAILURE(vantrel_set_value_double(report, "a\x80", 1), VANTREL_INVALID_TEXT,
                  "invalid UTF-8 sequence found in metric name");
    CHECK_FAILURE(vantrel_set_value_string(report, "\xff", NULL), VANTREL_NULL_STRING,
                  "null metric value found");
    CHECK_FAILURE(vantrel_set_dominant_metric(report, NULL), VANTREL_UNKNOWN_METRIC,
                  "metric \"\" not recognised");
    CHECK_FAILURE(vantrel_set_dominant_metric_advice(report, NULL), VANTREL_NULL_STRING,
                  "null advice string found when setting dominant metric advice");
    CHECK_FAILURE(vantrel_set_dominant_metric_advice(report, "\xff"), VANTREL_INVALID_TEXT,
                  "invalid UTF-8 sequence found in advice string");
    CHECK_FAILURE(vantrel_set_summary_entry_advice(report, "x", "<b><img src='x'></b>"),
                  VANTREL_INVALID_TEXT, bad_html);
    CHECK_FAILURE(vantrel_set_section_advice(report, "x", "<a href='x'>y</a>"),
                  VANTREL_INVALID_TEXT, bad_html);
    CHECK_FAILURE(vantrel_set_summary_entry_advice(report, "x", NULL), VANTREL_NULL_STRING,
                  "null advice string found when trying to set summary entry advice");
    CHECK_FAILURE(vantrel_set_summary_entry_advice(report, "x", "y"), VANTREL_UNKNOWN_SUMMARY_ENTRY,
                  "no summary entry found with ID: \"x\"");
    CHECK_FAILURE(vantrel_set_section_advice(report, "\xff", NULL), VANTREL_NULL_STRING,
                  "null advice string found when setting section advice");
    CHECK_FAILURE(vantrel_set_section_advice(report, "\xff", "y"), VANTREL_INVALID_TEXT,
                  "invalid UTF-8 sequence found in section ID");
    CHECK_FAILURE(vantrel_write_html(report, &page), VANTREL_MISSING_VALUE,
                  "No value has been set for metric CORVANE_APPLICATION_DETAIL_NUM_PROCESSES");
}

static void check_null_handle(void)
{
    char* page = NULL;
    vantrel_free(NULL);
    CHECK(vantrel_has_error(NULL) == 1);
    CHECK(same(vantrel_error_message(NULL),
               "vantrel pointer null, this can be caused by a memory allocation failure inside of "
               "vantrel_create, or by forgetting to call it altogether!"));
    CHECK(vantrel_set_value_double(NULL, NULL, 1) == VANTREL_NULL_HANDLE);
    CHECK(vantrel_set_value_int(NULL, NULL, 1) == VANTREL_NULL_HANDLE);
    CHECK(vantrel_set_value_string(NULL, NULL, "x") == VANTREL_NULL_HANDLE);
    CHECK(vantrel_set_dominant_metric(NULL, NULL) == VANTREL_NULL_HANDLE);
    CHECK(vantrel_set_dominant_metric_advice(NULL, NULL) == VANTREL_NULL_HANDLE);
    CHECK(vantrel_set_summary_entry_advice(NULL, NULL, NULL) == VANTREL_NULL_HANDLE);
    CHECK(vantrel_set_section_advice(NULL, NULL, NULL) == VANTREL_NULL_HANDLE);
    CHECK(vantrel_write_html(NULL, &page) == VANTREL_NULL_HANDLE);
}

static void check_calls(void)
{
    vantrel* report = create();
    char untouched;
    char* page = &untouched;
    char* again = NULL;
    CHECK(vantrel_set_value_double(report, "b.c", 3.5) == VANTREL_OK);
    CHECK(vantrel_set_value_double(report, "custom.report.metric.a", 0.5) == VANTREL_OK);
    CHECK(vantrel_set_value_string(report, CORVANE_APPLICATION_DETAIL_EXE_NAME, "a<b") == 0);
    CHECK(vantrel_set_value_int(report, CORVANE_APPLICATION_DETAIL_NUM_NODES, 0) == VANTREL_OK);
    CHECK(vantrel_write_html(report, NULL) == VANTREL_NULL_OUTPUT);
    CHECK(vantrel_has_error(report) == 0);
    CHECK(vantrel_set_value_int(report, CORVANE_APPLICATION_DETAIL_NUM_PROCESSES, 2) == 0);
    CHECK(vantrel_set_dominant_metric(report, "a") == VANTREL_OK);
    CHECK(vantrel_set_dominant_metric_advice(report, "<b>so</b>") == VANTREL_OK);
    CHECK(vantrel_set_summary_entry_advice(report, "a", "so") == VANTREL_OK);
    CHECK(vantrel_set_section_advice(report, "s", "a < b<br>c &eacute;") == VANTREL_OK);
    CHECK(vantrel_write_html(report, &page) == VANTREL_OK && page != &untouched);
    CHECK((again = page_of(report)) != NULL);
    if (failures == 0) {
        CHECK(again != page && memcmp(page, again, strlen(again)) == 0);
        CHECK(strstr(again, "A-bound") != NULL); /* and not the greatest, B */
        CHECK(strstr(again, "a\\u003cb") != NULL);
        free(page);
    }
    free(again);
    vantrel_free(report);
}

static void check_identity(void)
{
    static char const begin[] = "Corvane Custom Vantrel library\n    API version      : 1\n"
                                "    Software version : 7.0.6\n    Build ID         : ";
    char const* text = vantrel_library_id_string();
    unsigned long build = 0;
    int end = 0;
    CHECK(text == vantrel_library_id_string());
    CHECK(strncmp(text, begin, strlen(begin)) == 0);
    CHECK(sscanf(text + strlen(begin), "%12lx\n    Build platform   : %*s %*s %*s%n", &build,
                 &end) == 1);
    CHECK(same(text + strlen(begin) + end, "\n"));
}

/* What valid definitions leave behind in the process: no thread and, after the first report, no
   file. */
static void check_traces(void)
{
    int const files = entries_of("/proc/self/fd");
    int const threads = entries_of("/proc/self/task");
    check_calls();
    vantrel_free(vantrel_create("<other name=\"n\"/>"));
    CHECK(entries_of("/proc/self/fd") == files);
    CHECK(entries_of("/proc/self/task") == threads);
    CHECK(threads == 3); /* ".", ".." and the one that runs this */
}

int main(void)
{
    /* Something for the application object to change the locale to. */
    setenv("LC_ALL", "C.UTF-8", 1);
    /* The host's locale must survive the making of the application object. */
    char const* locale = setlocale(LC_ALL, "C");
    check_identity();
    vantrel_free(vantrel_create(NULL));
    CHECK(same(setlocale(LC_ALL, NULL), locale));
    check_null_handle();
    check_failing_calls();
    check_calls();
    check_traces();
    return failures == 0 ? 0 : 1;
}
