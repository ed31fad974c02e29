#include <vantrel.h>

#include <stdio.h>
#include <string.h>

int main(void)
{
    vantrel* report = vantrel_create(NULL);
    int const ok = vantrel_has_error(report) == 1 &&
                   strcmp(vantrel_error_message(report), "xml layout buffer pointer is null") == 0;
    vantrel_free(report);
    puts(vantrel_library_id_string());
    return ok ? 0 : 1;
}
