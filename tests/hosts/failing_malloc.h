/* Takes the place of malloc and fails once, when countdown reaches 0. Needs _GNU_SOURCE. */
#ifndef FAILING_MALLOC_H
#define FAILING_MALLOC_H

#include <dlfcn.h>
#include <stdlib.h>

static long countdown = -1;

void* malloc(size_t size)
{
    static void* (*real)(size_t);
    if (!real)
        *(void**)&real = dlsym(RTLD_NEXT, "malloc");
    return countdown > 0 && --countdown == 0 ? NULL : real(size);
}

#endif
