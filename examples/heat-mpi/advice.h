/* Advice from what was measured. */
#ifndef HEAT_ADVICE_H
#define HEAT_ADVICE_H

#include "overview.h"

#include <vantrel.h>

/* Adds the advice that the figures call for: on the run, on entries of the summary, on sections. */
int set_advice(vantrel* report, struct overview const* all);

#endif
