/* Each allocation of a create and of a write fails in turn, in a process that has made reports
   before: the calls tell it or do without. A valid definition isn't explained for it. */
#define _GNU_SOURCE
#include "failing_malloc.h"
#include "host.h"

#include <sys/wait.h>
#include <unistd.h>

static vantrel* filled;
static char* expected;

/* These give whether the failure was told. */
static int try_create(void)
{
    vantrel* const report = vantrel_create(definition);
    countdown = -1;
    CHECK(!report || !vantrel_has_error(report));
    CHECK(!maps("explainer.so"));
    return report == NULL;
}

static int try_write(void)
{
    char* page = NULL;
    int const code = vantrel_write_html(filled, &page);
    countdown = -1;
    CHECK(code == VANTREL_OK || code == VANTREL_EXCEPTION || code == VANTREL_OUT_OF_MEMORY);
    CHECK(code == VANTREL_OK ? memcmp(page, expected, strlen(expected)) == 0 : !page);
    return code != VANTREL_OK;
}

/* Crashes inside of libxml2 are its own and not counted. */
static void try_all(char const* name, int (*call)(void), long last, long step)
{
    int told = 0;
    int ended = 0;
    for (long allocation = 1; allocation <= last; allocation += step) {
        int status = 0;
        pid_t const child = fork();
        if (child == 0) {
            alarm(20);
            failures = 0;
            countdown = allocation;
            int const isTold = call();
            _exit(failures ? 2 : isTold);
        }
        waitpid(child, &status, 0);
        told += WIFEXITED(status) && WEXITSTATUS(status) == 1;
        ended += !WIFEXITED(status);
        if (WIFEXITED(status) && WEXITSTATUS(status) == 2) {
            fprintf(stderr, "%s: allocation %ld\n", name, allocation);
            ++failures;
        }
    }
    printf("%s: %d told, %d ended in libraries\n", name, told, ended);
    CHECK(told > 10);
    CHECK(ended <= last / step / 20);
}

int main(void)
{
    filled = vantrel_create(definition);
    CHECK(fill(filled) == 0);
    expected = page_of(filled);
    CHECK(expected != NULL);
    try_all("create", try_create, 800, 3);
    try_all("write", try_write, 3600, 37);
    free(expected);
    vantrel_free(filled);
    return failures != 0;
}
