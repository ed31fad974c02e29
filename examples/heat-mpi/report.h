/* Turns the figures of all processes into the metrics of heat-report.xml and writes the page. */
#ifndef HEAT_REPORT_H
#define HEAT_REPORT_H

#include "measure.h"

#include <time.h>

struct report_run {
    int processes;
    int nodes;
    char** argv; /* the command line, up to a null pointer */
    time_t start;
    char const* notes;
    struct measure_figures const* figures; /* one a process, by rank */
};

/* Warns on the standard error output if no report can be written, and why. For the process that
   will write it, before the work is done. */
void report_check(void);

/* Gives 0, or -1 after telling on the standard error output what failed. */
int report_write(struct report_run const* run, char const* path);

#endif
