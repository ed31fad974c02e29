/* After a fork both processes go on with the report that there is, and make others. */
#define _POSIX_C_SOURCE 200112L
#include "host.h"

#include <sys/wait.h>
#include <unistd.h>

int main(void)
{
    int status = 0;
    vantrel* const report = vantrel_create(definition);
    CHECK(fill(report) == 0);
    char* const page = page_of(report);
    pid_t const child = fork();
    check_page(report, page);
    vantrel* const other = vantrel_create(definition);
    CHECK(fill(other) == 0);
    check_page(other, page);
    vantrel* const unusable = vantrel_create(refused);
    CHECK(strstr(vantrel_error_message(unusable), "x is not defined"));
    vantrel_free(unusable);
    vantrel_free(other);
    vantrel_free(report);
    free(page);
    if (child > 0)
        CHECK(waitpid(child, &status, 0) == child && status == 0);
    return failures != 0;
}
