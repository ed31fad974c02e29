#pragma once

// The handle's name in the public header is also that of our namespace, so inside the library the
// type goes by its own name.
#define vantrel vantrel_handle
#include "vantrel.h"
#undef vantrel
