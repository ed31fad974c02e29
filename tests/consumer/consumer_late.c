#include <vantrel_late.h>

#include <stdio.h>
#include <string.h>

int main(void)
{
    char const* const reason = vantrel_late_open();
    vantrel* const report =
        vantrel_create("<report xmlns=\"http://www.corvane.example/2016/CorvaneReports\"/>");
    char const* const message = vantrel_error_message(report);
    int const ok = !reason && message && strstr(message, "report is missing");
    fprintf(stderr, "%s\n", reason ? reason : message ? message : "no error");
    vantrel_free(report);
    return ok ? 0 : 1;
}
