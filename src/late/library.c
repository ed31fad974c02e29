/* Opens the shared library. Without a lock, so that a process forked in the middle of it, or a tool
   whose own wrappers are called from in there, can't hang: threads that open the library at once
   get the same one from the loader and store the same functions. */
#define _GNU_SOURCE
#include "late/library.h"

#include <dlfcn.h>
#include <limits.h>
#include <link.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <sys/auxv.h>
#include <unistd.h>

#define SONAME "libcorvane-custom-vantrel.so.1"
#define SYMBOL_VERSION "LIBTEST"

enum { reasonSize = 4095 };

late_function _Atomic vantrel_late_functions[late_count];

#define LATE_NAME(call) #call,
static char const* const names[] = {LATE_CALLS(LATE_NAME)};

static char const* _Atomic firstReason;

static void append(char* reason, char const* separator, char const* text)
{
    size_t const used = strlen(reason);
    snprintf(reason + used, reasonSize - used, "%s%s", separator, text);
}

static void* openFile(char const* name, char const* separator, char* reason)
{
    void* const library = dlopen(name, RTLD_NOW | RTLD_LOCAL);
    if (!library) {
        char const* const problem = dlerror();
        append(reason, separator, problem ? problem : name);
    }
    return library;
}

/* Gives 0 if the path isn't known, as where /proc isn't mounted, or is too long. */
static int findBesideProgram(char path[PATH_MAX])
{
    ssize_t const length = readlink("/proc/self/exe", path, PATH_MAX);
    if (length <= 0 || length == PATH_MAX)
        return 0;
    path[length] = '\0';
    char* const slash = strrchr(path, '/');
    if (!slash || slash + 1 - path + sizeof SONAME > PATH_MAX)
        return 0;
    strcpy(slash + 1, SONAME);
    return 1;
}

static void* openLibrary(char* reason)
{
    char path[PATH_MAX];
    /* Whoever starts a program with raised privileges sets its environment, and may choose its
       folder by a hard link. */
    int const isTrusted = getauxval(AT_SECURE) == 0;
    char const* const named = isTrusted ? getenv("VANTREL_LIBRARY") : NULL;
    if (named && *named)
        return openFile(named, "The library that VANTREL_LIBRARY names can't be opened: ", reason);
    void* library = NULL;
    char const* separator = SONAME " can't be opened: ";
    if (isTrusted && findBesideProgram(path)) {
        library = openFile(path, separator, reason);
        separator = "; ";
    }
    return library ? library : openFile(SONAME, separator, reason);
}

static int hasAllCalls(void* library, char* reason)
{
    for (int i = 0; i < late_count; ++i) {
        if (!dlvsym(library, names[i], SYMBOL_VERSION)) {
            struct link_map* map = NULL;
            dlinfo(library, RTLD_DI_LINKMAP, &map);
            snprintf(reason, reasonSize, "%s has no %s of version " SYMBOL_VERSION,
                     map ? map->l_name : SONAME, names[i]);
            return 0;
        }
    }
    return 1;
}

/* Two libraries only come here if the environment changes between two first calls at once. */
static void publish(void* library)
{
    static void* _Atomic chosen;
    void* before = NULL;
    if (!atomic_compare_exchange_strong(&chosen, &before, library))
        library = before;
    for (int i = 0; i < late_count; ++i) {
        union {
            void* symbol;
            late_function function;
        } const found = {dlvsym(library, names[i], SYMBOL_VERSION)};
        atomic_store_explicit(&vantrel_late_functions[i], found.function, memory_order_release);
    }
}

static char const* keepReason(char const* reason)
{
    static atomic_flag isClaimed = ATOMIC_FLAG_INIT;
    static char kept[reasonSize];
    if (!atomic_flag_test_and_set(&isClaimed)) {
        strcpy(kept, reason);
        atomic_store(&firstReason, kept);
    }
    /* Another thread may still be copying. */
    char const* const first = atomic_load(&firstReason);
    return first ? first : SONAME " can't be opened";
}

static char const* tryToOpen(void)
{
    char reason[reasonSize];
    reason[0] = '\0';
    void* const library = openLibrary(reason);
    if (!library || !hasAllCalls(library, reason))
        return keepReason(reason);
    publish(library);
    return NULL;
}

char const* vantrel_late_open(void)
{
    /* The last one to be stored. */
    return LATE_FUNCTION(vantrel_library_id_string) ? NULL : tryToOpen();
}

char const* vantrel_late_reason(void)
{
    return atomic_load(&firstReason);
}
