/* The smallest complete use of vantrel: it times three pieces of work and writes report.html. */
#define _POSIX_C_SOURCE 200809L
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <time.h>
#include <vantrel.h>

#define NUMBERS 2000000

/* A report needs at least three entries in its summary, and its xmlns in double quotes. */
static char const definition[] =
    "<report xmlns=\"http://www.corvane.example/2016/CorvaneReports\" name='Minimal'>"
    "<reportMetrics>"
    "<reportMetric id='fill' displayName='Filling' units='%' colour='darkslateblue'/>"
    "<reportMetric id='sort' displayName='Sorting' units='%' colour='firebrick'"
    " breakdownSubsection='work'/>"
    "<reportMetric id='search' displayName='Searching' units='%' colour='darkgreen'/>"
    "</reportMetrics>"
    "<summary>"
    "<heading>${corvane.appDetails.exeName} spent most of its time in"
    " ${corvane.dominant.metric.name}.</heading>"
    "<entry id='fill' reportMetric='fill'><description>Making the numbers.</description></entry>"
    "<entry id='sort' reportMetric='sort'><description>Putting them in order.</description></entry>"
    "<entry id='search' reportMetric='search'><description>Finding them.</description></entry>"
    "</summary>"
    "<subsections>"
    "<subsection id='work' heading='Work' colour='firebrick'>"
    "<text>Sorting took ${*sort} of the time.</text>"
    "<entry reportMetric='fill' group='work'/>"
    "<entry reportMetric='sort' group='work'/>"
    "<entry reportMetric='search' group='work'/>"
    "</subsection>"
    "</subsections>"
    "</report>";

static double now(void)
{
    struct timespec time;
    clock_gettime(CLOCK_MONOTONIC, &time);
    return (double)time.tv_sec + 1e-9 * (double)time.tv_nsec;
}

static int compare(void const* a, void const* b)
{
    unsigned const left = *(unsigned const*)a;
    unsigned const right = *(unsigned const*)b;
    return (left > right) - (left < right);
}

/* Stores the shares of the three pieces in percent; gives -1 if something went wrong. */
static int work(double shares[3])
{
    unsigned* numbers = malloc(NUMBERS * sizeof *numbers);
    unsigned state = 1;
    int found = 0;
    double times[4];
    if (!numbers)
        return -1;
    times[0] = now();
    for (int i = 0; i < NUMBERS; i++)
        numbers[i] = state = state * 1664525u + 1013904223u;
    times[1] = now();
    qsort(numbers, NUMBERS, sizeof *numbers, compare);
    times[2] = now();
    for (int i = 0; i < NUMBERS; i += 2)
        found += bsearch(&numbers[i], numbers, NUMBERS, sizeof *numbers, compare) != NULL;
    times[3] = now();
    for (int i = 0; i < 3; i++)
        shares[i] = 100 * (times[i + 1] - times[i]) / (times[3] - times[0]);
    free(numbers);
    return found == NUMBERS / 2 ? 0 : -1;
}

/* The page has no NUL behind it; it ends with "</html>", which stands nowhere else. */
static size_t page_length(char const* page)
{
    size_t length = 0;
    while (page[length] != '<' || memcmp(page + length, "</html>", 7) != 0)
        length++;
    return length + 7;
}

static int save(char const* page)
{
    size_t const length = page_length(page);
    FILE* file = fopen("report.html", "wb");
    int good = file && fwrite(page, 1, length, file) == length;
    if (file && fclose(file) != 0)
        good = 0;
    if (!good)
        perror("report.html");
    return good ? EXIT_SUCCESS : EXIT_FAILURE;
}

int main(void)
{
    double shares[3];
    char* page = NULL;
    int result = EXIT_FAILURE;
    if (work(shares) != 0)
        return EXIT_FAILURE;
    vantrel* report = vantrel_create(definition);
    if (vantrel_set_value_string(report, CORVANE_APPLICATION_DETAIL_EXE_NAME, "minimal") == 0 &&
        vantrel_set_value_int(report, CORVANE_APPLICATION_DETAIL_NUM_PROCESSES, 1) == 0 &&
        vantrel_set_value_double(report, "fill", shares[0]) == 0 &&
        vantrel_set_value_double(report, "sort", shares[1]) == 0 &&
        vantrel_set_value_double(report, "search", shares[2]) == 0 &&
        vantrel_write_html(report, &page) == 0)
        result = save(page);
    else
        fprintf(stderr, "minimal: %s\n", vantrel_error_message(report));
    free(page);
    vantrel_free(report);
    return result;
}
