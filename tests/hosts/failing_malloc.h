/* Allocations that fail. Needs _GNU_SOURCE. */
#ifndef FAILING_MALLOC_H
#define FAILING_MALLOC_H

#include "host.h"

#include <dlfcn.h>
#include <sys/wait.h>
#include <unistd.h>

static long countdown = -1;

/* Takes the place of the system's and fails once, when countdown reaches 0. */
void* malloc(size_t size)
{
    static void* (*real)(size_t);
    if (!real)
        *(void**)&real = dlsym(RTLD_NEXT, "malloc");
    return countdown > 0 && --countdown == 0 ? NULL : real(size);
}

/* Makes one allocation after the other fail, each in a process of its own. The call gives whether
   the failure was told. Crashes inside of Qt and libxml2 are their own: *ended counts them. */
static int number_told(char const* name, int (*call)(void), long last, long step, int* ended)
{
    int told = 0;
    *ended = 0;
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
        *ended += !WIFEXITED(status);
        if (WIFEXITED(status) && WEXITSTATUS(status) == 2) {
            fprintf(stderr, "%s: allocation %ld\n", name, allocation);
            ++failures;
        }
    }
    printf("%s: %d told, %d ended in libraries\n", name, told, *ended);
    return told;
}

#endif
