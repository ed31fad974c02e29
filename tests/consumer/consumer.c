#include <vantrel.h>

#include <stdio.h>
#include <string.h>

int main(void)
{
    vantrel* report = vantrel_create(NULL);
    int ok = vantrel_has_error(report) == 1 &&
             strcmp(vantrel_error_message(report), "xml layout buffer pointer is null") == 0;
    vantrel_free(report);
    /* Explained by the module that is installed with the library. */
    report = vantrel_create("<report xmlns=\"http://www.corvane.example/2016/CorvaneReports\"/>");
    ok = ok && strstr(vantrel_error_message(report), "report is missing");
    vantrel_free(report);
    puts(vantrel_library_id_string());
    return ok ? 0 : 1;
}
