/* Texts longer than Qt's strings can be get a clear error and are never cut. */
#define _GNU_SOURCE
#include "host.h"

#include <sys/mman.h>
#include <unistd.h>

#define PIECE ((size_t)1 << 20)
#define FOUR_GIB ((size_t)1 << 32)

/* A text of 4 GiB and 4 bytes that takes little memory: one piece, mapped again and again. Cut to
   32 bits, its length would be 4. */
static char* great_text(void)
{
    int const file = memfd_create("text", 0);
    char* const text = mmap(NULL, FOUR_GIB + PIECE, PROT_READ | PROT_WRITE,
                            MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0);
    if (text == MAP_FAILED || file < 0 || ftruncate(file, PIECE) != 0)
        return NULL;
    for (size_t at = 0; at < FOUR_GIB; at += PIECE) {
        if (mmap(text + at, PIECE, PROT_READ | PROT_WRITE, MAP_SHARED | MAP_FIXED, file, 0) ==
            MAP_FAILED)
            return NULL;
    }
    memset(text, 'a', PIECE);
    memcpy(text + FOUR_GIB, "aaaa", 5);
    return text;
}

static void check(char const* call, int code, vantrel* report)
{
    char const* const message = vantrel_error_message(report);
    if (code != VANTREL_INVALID_TEXT || !strstr(message, " is longer than 1073741760 bytes")) {
        fprintf(stderr, "%s: %d %s\n", call, code, message);
        ++failures;
    }
    vantrel_free(report);
}

#define CHECK_CALL(call)                                                                           \
    do {                                                                                           \
        vantrel* const r = vantrel_create(definition);                                             \
        check(#call, call, r);                                                                     \
    } while (0)

int main(void)
{
    char const* const text = great_text();
    if (!text) {
        perror("the text");
        return 1;
    }
    CHECK_CALL(vantrel_set_value_string(r, CORVANE_APPLICATION_DETAIL_EXE_NAME, text));
    /* The others go through the same check of texts. */
    CHECK_CALL(vantrel_set_dominant_metric(r, text));
    CHECK_CALL(vantrel_set_summary_entry_advice(r, text, "x"));
    check("vantrel_create", VANTREL_INVALID_TEXT, vantrel_create(text));
    return failures != 0;
}
