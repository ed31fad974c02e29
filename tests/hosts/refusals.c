/* A refused definition reaches nothing outside of the process: no thread, program, socket, bus or
   descriptor, whatever the environment says. Calls that would are counted here and fail. */
#define _GNU_SOURCE
#include "host.h"

#include <errno.h>
#include <pthread.h>
#include <spawn.h>
#include <sys/socket.h>
#include <sys/syscall.h>
#include <unistd.h>

static int counted = 0;
/* Whether there is an application object, which has a descriptor of its own. */
static int isMade = 0;

static int count(void)
{
    ++counted;
    errno = EAGAIN;
    return -1;
}

/* clang-format off */
int socket(int a, int b, int c) { (void)a, (void)b, (void)c; return count(); }
int eventfd(unsigned a, int b) { return isMade ? count() : (int)syscall(SYS_eventfd2, a, b); }
int pipe(int a[2]) { (void)a; return count(); }
int pipe2(int a[2], int b) { (void)a, (void)b; return count(); }
pid_t fork(void) { return count(); }
int execve(const char* a, char* const b[], char* const c[]) { (void)a, (void)b, (void)c; return count(); }
int execv(const char* a, char* const b[]) { (void)a, (void)b; return count(); }
int posix_spawn(pid_t* a, const char* b, const posix_spawn_file_actions_t* c, const posix_spawnattr_t* d,
                char* const e[], char* const f[])
{ (void)a, (void)b, (void)c, (void)d, (void)e, (void)f; count(); return EAGAIN; }
int pthread_create(pthread_t* a, const pthread_attr_t* b, void* (*c)(void*), void* d)
{ (void)a, (void)b, (void)c, (void)d; count(); return EAGAIN; }
/* clang-format on */

#define SCHEMA "xmlns:i=\"http://www.w3.org/2001/XMLSchema-instance\" i:schemaLocation="

static char const* const texts[] = {
    "<report " NAMESPACE " name=\"r\"><x/></report>",
    "<report " NAMESPACE " name=\"r\">",
    "<!DOCTYPE report SYSTEM \"http://127.0.0.1/x.dtd\"><report " NAMESPACE " name=\"r\"/>",
    "<report " NAMESPACE " name=\"r\" " SCHEMA "\"urn:x http://127.0.0.1/x.xsd\"/>",
    "<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?><report " NAMESPACE
    " name=\"\xE9\"><x/></report>",
};

static void check_refusal(char const* text, char const* words)
{
    vantrel* const report = vantrel_create(text);
    char const* const message = vantrel_error_message(report);
    CHECK(message && strstr(message, words));
    vantrel_free(report);
}

int main(int argc, char** argv)
{
    int const hasModule = argc < 2 || strcmp(argv[1], "without-module") != 0;
    allow_descriptors(0);
    CHECK(vantrel_create(definition) == NULL);
    allow_descriptors(1);
    vantrel_free(vantrel_create(definition));
    isMade = 1;
    int const descriptors = entries_of("/proc/self/fd");
    /* With no descriptor left the module can't be opened, but the refusal comes all the same. */
    allow_descriptors(0);
    check_refusal(texts[0], "module explainer.so can't be opened");
    allow_descriptors(1);
    for (size_t i = 0; i < sizeof texts / sizeof *texts; ++i)
        check_refusal(texts[i], hasModule ? "memory:definition at line 1 column "
                                          : "module explainer.so can't be opened");
    allow_descriptors(0);
    check_refusal(texts[0], hasModule ? "x is not defined" : "can't be opened");
    allow_descriptors(1);
    CHECK(counted == 0);
    CHECK(entries_of("/proc/self/fd") == descriptors);
    CHECK(entries_of("/proc/self/task") == 3);
    CHECK(!maps("/bearer/") && !maps("DBus") && maps("explainer.so") == hasModule);
    return failures != 0;
}
