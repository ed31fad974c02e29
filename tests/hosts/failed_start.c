/* The first create runs out of memory, at each of its first allocations in turn. What follows in
   the same process neither crashes nor hangs: it refuses, or it works. */
#define _GNU_SOURCE
#include "failing_malloc.h"

#include <signal.h>

static void fail(int number)
{
    (void)number;
    _exit(2);
}

static int try_first(void)
{
    int const isTold = vantrel_create(definition) == NULL;
    countdown = -1;
    for (int number = 1; number < NSIG; ++number)
        signal(number, fail);
    for (int i = 0; i < 2; ++i) {
        vantrel* const report = vantrel_create(definition);
        char* const page = report && fill(report) == 0 ? page_of(report) : NULL;
        CHECK(!report || page);
        free(page);
        vantrel_free(report);
    }
    return isTold;
}

int main(void)
{
    int ended;
    CHECK(number_told("first create", try_first, 300, 1, &ended) > 0);
    return failures != 0;
}
