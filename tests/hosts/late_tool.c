/* A tool that is a shared object. */
#include "vantrel_late.h"

#include <stdio.h>

/* Gives 0 if a report can be made. */
int tool_check(void)
{
    char const* const reason = vantrel_late_open();
    vantrel* const report = vantrel_create("<a/>");
    if (reason)
        fprintf(stderr, "%s\n", reason);
    int const code = vantrel_set_value_int(report, CORVANE_APPLICATION_DETAIL_NUM_PROCESSES, 1);
    vantrel_free(report);
    return reason || code != VANTREL_REPORT_IN_ERROR;
}
