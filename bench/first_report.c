/* Times the first report of a process: from before vantrel_create() to the page, in microseconds.
 * The definition is a file that is given as argument; each of its metrics is named by one more. */
#include "vantrel.h"

#include <stdio.h>
#include <stdlib.h>
#include <time.h>

static double now(void)
{
    struct timespec time;
    clock_gettime(CLOCK_MONOTONIC, &time);
    return (double)time.tv_sec * 1e6 + (double)time.tv_nsec / 1e3;
}

static char* read_file(char const* path)
{
    static char text[1 << 20];
    FILE* file = fopen(path, "rb");
    size_t length;
    if (!file)
        return NULL;
    length = fread(text, 1, sizeof text - 1, file);
    fclose(file);
    text[length] = '\0';
    return text;
}

int main(int argc, char** argv)
{
    char* definition = argc > 1 ? read_file(argv[1]) : NULL;
    char* page = NULL;
    double begin;
    double created;
    double written;
    vantrel* report;
    int i;
    if (!definition) {
        fprintf(stderr, "usage: %s DEFINITION METRIC...\n", argv[0]);
        return 2;
    }
    begin = now();
    report = vantrel_create(definition);
    created = now();
    vantrel_set_value_string(report, CORVANE_APPLICATION_DETAIL_EXE_NAME, "first");
    vantrel_set_value_int(report, CORVANE_APPLICATION_DETAIL_NUM_PROCESSES, 1);
    for (i = 2; i < argc; ++i)
        vantrel_set_value_double(report, argv[i], 10.0 * i);
    if (vantrel_write_html(report, &page) != VANTREL_OK) {
        fprintf(stderr, "%s\n", vantrel_error_message(report));
        return 1;
    }
    written = now();
    printf("create %.0f us, set and write %.0f us, together %.0f us\n", created - begin,
           written - created, written - begin);
    free(page);
    vantrel_free(report);
    return 0;
}
