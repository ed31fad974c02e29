/* The first create runs out of memory, at each of its first allocations in turn. What follows in
   the same process neither crashes nor hangs: it refuses, or it works. */
#define _GNU_SOURCE
#include "failing_malloc.h"
#include "host.h"

#include <sys/wait.h>
#include <unistd.h>

/* Gives what became of the first create: 0 a report, 1 none, 2 a crash in it. */
static int first_result(long allocation, int* failed)
{
    int status = 0;
    int pipes[2];
    char reached = 0;
    if (pipe(pipes) != 0)
        return 2;
    pid_t const child = fork();
    if (child == 0) {
        alarm(20);
        countdown = allocation;
        vantrel* const first = vantrel_create(definition);
        int const result = first ? 0 : 1;
        countdown = -1;
        if (write(pipes[1], "r", 1) != 1)
            _exit(3);
        for (int i = 0; i < 2; ++i) {
            vantrel* const report = vantrel_create(definition);
            char* const page = report && fill(report) == 0 ? page_of(report) : NULL;
            CHECK(!report || page);
            free(page);
            vantrel_free(report);
        }
        _exit(failures ? 3 : result);
    }
    close(pipes[1]);
    if (read(pipes[0], &reached, 1) != 1)
        reached = 0;
    close(pipes[0]);
    waitpid(child, &status, 0);
    if (reached)
        *failed |= !WIFEXITED(status) || WEXITSTATUS(status) > 1;
    return reached && WIFEXITED(status) ? WEXITSTATUS(status) : 2;
}

int main(void)
{
    int results[4] = {0, 0, 0, 0};
    for (long allocation = 1; allocation <= 300; ++allocation) {
        int failed = 0;
        int const result = first_result(allocation, &failed);
        ++results[result];
        if (failed)
            fprintf(stderr, "after a failure of allocation %ld: %d\n", allocation, result);
        failures += failed;
    }
    printf("%d made a report, %d refused, %d ended in Qt\n", results[0], results[1], results[2]);
    CHECK(results[1] > 0);
    return failures != 0;
}
