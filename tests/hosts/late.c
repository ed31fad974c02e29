/* Programs that link the static library: what they do while there is no library, and where they
   find it. */
#define _GNU_SOURCE
#include "host.h"
#include "vantrel_late.h"

#include <dlfcn.h>
#include <link.h>
#include <sys/wait.h>
#include <unistd.h>

static void check_closed(char const* words)
{
    char untouched;
    char* page = &untouched;
    char const* const reason = vantrel_late_open();
    if (!reason || !strstr(reason, words)) {
        fprintf(stderr, "instead of %s: %s\n", words, reason ? reason : "(open)");
        ++failures;
    }
    CHECK(vantrel_create(definition) == NULL);
    CHECK(vantrel_error_message(NULL) == reason && vantrel_library_id_string() == reason);
    CHECK(vantrel_has_error(NULL) == 1);
    CHECK(vantrel_set_value_double(NULL, "a", 1) == VANTREL_NULL_HANDLE);
    CHECK(vantrel_set_value_int(NULL, "a", 1) == VANTREL_NULL_HANDLE);
    CHECK(vantrel_set_value_string(NULL, "a", NULL) == VANTREL_NULL_HANDLE);
    CHECK(vantrel_set_dominant_metric(NULL, "a") == VANTREL_NULL_HANDLE);
    CHECK(vantrel_set_dominant_metric_advice(NULL, "a") == VANTREL_NULL_HANDLE);
    CHECK(vantrel_set_summary_entry_advice(NULL, "a", "a") == VANTREL_NULL_HANDLE);
    CHECK(vantrel_set_section_advice(NULL, "s", "a") == VANTREL_NULL_HANDLE);
    CHECK(vantrel_write_html(NULL, &page) == VANTREL_NULL_HANDLE && page == &untouched);
    vantrel_free(NULL);
    CHECK(dlerror() == NULL);
}

/* Each in a process of its own, since the first reason stays. */
static void check_refused(char const* library, char const* words)
{
    int status = 0;
    pid_t const child = fork();
    if (child == 0) {
        setenv("VANTREL_LIBRARY", library, 1);
        check_closed(words);
        CHECK(strlen(vantrel_late_open()) <= 4094);
        setenv("VANTREL_LIBRARY", "/elsewhere", 1);
        check_closed(words);
        _exit(failures != 0);
    }
    waitpid(child, &status, 0);
    CHECK(status == 0);
}

static void check_all_refused(char const* text_file, char const* incomplete_library)
{
    static char long_name[100000];
    memset(long_name, 'x', sizeof long_name - 1);
    check_refused("/nowhere/vantrel.so",
                  "The library that VANTREL_LIBRARY names can't be opened: /nowhere/vantrel.so: "
                  "cannot open shared object file: No such file");
    check_refused(text_file, "invalid ELF header");
    check_refused(incomplete_library, " has no vantrel_free of version LIBTEST");
    check_refused(long_name, "names can't be opened: xxxx");
}

static void check_works(void)
{
    vantrel* const report = vantrel_create(definition);
    CHECK(fill(report) == 0);
    char* const page = page_of(report);
    CHECK(page && strstr(page, "\"exeName\":\"h\xC3\xB6st\""));
    free(page);
    vantrel_free(report);
    CHECK(vantrel_late_open() == NULL);
}

/* With no descriptor free nothing can be opened. Later it can. */
static void check_again(void)
{
    char const* const before = vantrel_error_message(NULL);
    allow_descriptors(0);
    check_closed("libcorvane-custom-vantrel.so.1 can't be opened: /");
    check_closed("; libcorvane-custom-vantrel.so.1: cannot open shared object file");
    allow_descriptors(1);
    check_works();
    CHECK(vantrel_error_message(NULL) != before &&
          strcmp(vantrel_error_message(NULL), before) == 0);
}

static int count_object(struct dl_phdr_info* object, size_t size, void* number)
{
    (void)object, (void)size;
    ++*(int*)number;
    return 0;
}

/* The program, the C library, the loader and what the kernel brings. */
static void check_idle(void)
{
    int objects = 0;
    CHECK(vantrel_set_value_double(NULL, CORVANE_APPLICATION_DETAIL_TIME, 1) != 0);
    CHECK(strlen(vantrel_error_message(NULL)) > 0);
    dl_iterate_phdr(count_object, &objects);
    CHECK(objects == 4);
}

/* A shared object finds the library by its own path and gives none of the names away. */
static void check_tool(char const* file)
{
    static char const* const names[] = {"vantrel_create", "vantrel_late_open",
                                        "vantrel_late_functions",
                                        "CORVANE_APPLICATION_DETAIL_NOTES"};
    void* const tool = dlopen(file, RTLD_NOW);
    int (*check)(void) = NULL;
    for (size_t i = 0; tool && i < sizeof names / sizeof *names; ++i)
        CHECK(!dlsym(tool, names[i]));
    if (tool)
        *(void**)&check = dlsym(tool, "tool_check");
    CHECK(check && check() == 0);
}

int main(int argc, char** argv)
{
    char const* const mode = argc > 1 ? argv[1] : "";
    if (strcmp(mode, "refused") == 0 && argc == 4)
        check_all_refused(argv[2], argv[3]);
    else if (strcmp(mode, "again") == 0)
        check_again();
    else if (strcmp(mode, "idle") == 0)
        check_idle();
    else if (strcmp(mode, "tool") == 0 && argc == 3)
        check_tool(argv[2]);
    else if (strcmp(mode, "works") == 0)
        check_works();
    else
        CHECK(!"a known mode");
    if (argc == 3 && strcmp(mode, "works") == 0)
        CHECK(maps(argv[2]));
    return failures != 0;
}
