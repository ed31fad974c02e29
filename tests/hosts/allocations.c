/* Each allocation of a create and of a write fails in turn, in a process that has made reports
   before: the calls tell it or do without. A valid definition isn't explained for it. */
#define _GNU_SOURCE
#include "failing_malloc.h"

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

static void try_all(char const* name, int (*call)(void), long last, long step)
{
    int ended;
    CHECK(number_told(name, call, last, step, &ended) > 10);
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
