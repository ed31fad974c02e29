/* Reports that are made and written while the process ends: by an exit handler that was there
   before the first report, and by a destructor function. Both find tables of Qt gone. */
#define _POSIX_C_SOURCE 200112L
#include "host.h"

#include <unistd.h>

static vantrel* unwritten;
static vantrel* written;
static char* expected;

/* What needs no tables of Qt works; the rest refuses and tells why. */
static void report_late(void)
{
    vantrel* advised;
    check_page(written, expected);
    CHECK(fill(unwritten) == 0);
    check_page(unwritten, expected);
    CHECK(vantrel_set_value_double(unwritten, "a", 61.5) == 0);
    CHECK(vantrel_set_dominant_metric(unwritten, "b.c") == 0);
    CHECK(vantrel_create(definition) == NULL && vantrel_create(refused) == NULL);
    CHECK(vantrel_create(NULL) == NULL);
    advised = written;
    CHECK(vantrel_set_section_advice(advised, "s", "<b>x</b>") == VANTREL_EXCEPTION);
    CHECK(strstr(vantrel_error_message(advised), "the process is ending") != NULL);
    CHECK(vantrel_set_value_double(unwritten, "\x80", 1) == VANTREL_INVALID_TEXT);
    CHECK(strlen(vantrel_library_id_string()) > 100);
    vantrel_free(written);
    vantrel_free(unwritten);
    if (failures)
        _exit(1);
}

static int early; /* whether the handler comes first */

static void exit_handler(void)
{
    if (early)
        report_late();
}

__attribute__((destructor)) static void destructor_function(void)
{
    if (!early && expected)
        report_late();
    free(expected);
}

int main(int argc, char** argv)
{
    early = argc > 1 && strcmp(argv[1], "handler") == 0;
    atexit(exit_handler);
    unwritten = vantrel_create(definition);
    written = vantrel_create(definition);
    CHECK(fill(written) == 0);
    expected = page_of(written);
    CHECK(expected != NULL);
    /* Makes what refusals need. */
    vantrel_free(vantrel_create(refused));
    return failures != 0;
}
