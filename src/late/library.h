/* The calls of the shared library, which are looked up when it is opened. */
#ifndef LATE_LIBRARY_H
#define LATE_LIBRARY_H

#include "vantrel_late.h"

#include <stdatomic.h>

/* As C sees a function that returns an object of a class: the address for the object comes first
   and is given back. */
void* vantrel_internal_get_value(void* value, vantrel const* report, char const* metricId);

#define LATE_CALLS(X)                                                                              \
    X(vantrel_create)                                                                              \
    X(vantrel_free)                                                                                \
    X(vantrel_has_error)                                                                           \
    X(vantrel_error_message)                                                                       \
    X(vantrel_internal_get_value)                                                                  \
    X(vantrel_set_value_double)                                                                    \
    X(vantrel_set_value_int)                                                                       \
    X(vantrel_set_value_string)                                                                    \
    X(vantrel_set_dominant_metric)                                                                 \
    X(vantrel_set_dominant_metric_advice)                                                          \
    X(vantrel_set_summary_entry_advice)                                                            \
    X(vantrel_set_section_advice)                                                                  \
    X(vantrel_write_html)                                                                          \
    X(vantrel_library_id_string)

#define LATE_INDEX(call) late_##call,
enum late_call { LATE_CALLS(LATE_INDEX) late_count };

typedef void (*late_function)(void);

/* All null until the library is open. */
extern late_function _Atomic vantrel_late_functions[late_count];

/* The library's function, or null. */
#define LATE_FUNCTION(call)                                                                        \
    ((__typeof__(&call))atomic_load_explicit(&vantrel_late_functions[late_##call],                 \
                                             memory_order_acquire))

/* The reason of the first open that has failed, or null. */
char const* vantrel_late_reason(void);

#endif
