/* A library that has one of the calls and not the others. */
#include "vantrel.h"

#include <stdlib.h>

vantrel* vantrel_create(char const* xmlLayout)
{
    (void)xmlLayout;
    abort();
}
