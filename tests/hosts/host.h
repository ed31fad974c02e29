/* What the hosts share: a definition, and a report of it that is ready to be written. */
#ifndef HOST_H
#define HOST_H

#include "vantrel.h"

#include <dirent.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <sys/resource.h>

static int failures = 0;

#define CHECK(condition)                                                                           \
    do {                                                                                           \
        if (!(condition)) {                                                                        \
            fprintf(stderr, "%s:%d: %s\n", __FILE__, __LINE__, #condition);                        \
            ++failures;                                                                            \
        }                                                                                          \
    } while (0)

#define NAMESPACE "xmlns=\"http://www.corvane.example/2016/CorvaneReports\""

static char const definition[] =
    "<report " NAMESPACE " name=\"Host\"><reportMetrics>"
    "<reportMetric id=\"a\" displayName=\"A\" units=\"%\" colour=\"hsl(10,20,30)\"/>"
    "<reportMetric id=\"b.c\" displayName=\"B\" units=\"B/s\" colour=\"teal\"/></reportMetrics>"
    "<summary><heading>${corvane.dominant.metric.name} &amp; ${*b.c}</heading>"
    "<entry id=\"a\" reportMetric=\"a\"><description>One<br/> of <b>three</b></description></entry>"
    "<entry id=\"b\" reportMetric=\"b.c\" requires=\"applicationDetails.notes\"/>"
    "<entry id=\"c\" reportMetric=\"a\"/></summary>"
    "<subsections><subsection id=\"s\" heading=\"S\" colour=\"#123\"><text>t</text>"
    "<entry reportMetric=\"b.c\" unitPrefix=\"iec\" maxBarValue=\"7.5\"/><spacer/></subsection>"
    "</subsections></report>";

static char const refused[] = "<report " NAMESPACE " name=\"Host\"><x/></report>";

/* Gives 0 if all calls succeed. */
static inline int fill(vantrel* report)
{
    return vantrel_set_value_string(report, CORVANE_APPLICATION_DETAIL_EXE_NAME, "h\xC3\xB6st") ||
           vantrel_set_value_int(report, CORVANE_APPLICATION_DETAIL_NUM_PROCESSES, 3) ||
           vantrel_set_value_double(report, "a", 61.5) ||
           vantrel_set_value_double(report, "b.c", 1.5e9);
}

/* The page as a string; null if there is none. */
static inline char* page_of(vantrel* report)
{
    char* page = NULL;
    size_t length = 0;
    if (vantrel_write_html(report, &page) != 0)
        return NULL;
    while (page[length] != '<' || memcmp(page + length, "</html>", 7) != 0)
        ++length;
    char* text = (char*)calloc(1, length + 8);
    if (text)
        memcpy(text, page, length + 7);
    free(page);
    return text;
}

/* Whether the report can be written, and its page is the expected one. */
static inline void check_page(vantrel* report, char const* expected)
{
    char* const page = page_of(report);
    if (!page)
        fprintf(stderr, "%s\n", vantrel_error_message(report));
    CHECK(page && expected && strcmp(page, expected) == 0);
    free(page);
}

static inline void allow_descriptors(int allowed)
{
    struct rlimit limit;
    getrlimit(RLIMIT_NOFILE, &limit);
    limit.rlim_cur = allowed ? limit.rlim_max : 0;
    setrlimit(RLIMIT_NOFILE, &limit);
}

/* How many entries the folder has, "." and ".." among them. */
static inline int entries_of(char const* folder)
{
    int number = 0;
    DIR* const all = opendir(folder);
    while (all && readdir(all))
        ++number;
    if (all)
        closedir(all);
    return number;
}

/* Whether the process has mapped a file with the word in its name. */
static inline int maps(char const* word)
{
    char line[4096];
    int found = 0;
    FILE* const file = fopen("/proc/self/maps", "r");
    while (file && fgets(line, sizeof line, file))
        found |= strstr(line, word) != NULL;
    if (file)
        fclose(file);
    return found;
}

#endif
