/* The calls of vantrel.h: each goes on to the library, or does what it does for a null handle. */
#include "late/library.h"

#include <stdint.h>
#include <string.h>

#define CALL(call, otherwise, ...)                                                                 \
    (LATE_FUNCTION(call) ? LATE_FUNCTION(call)(__VA_ARGS__) : (otherwise))

vantrel* vantrel_create(char const* xmlLayout)
{
    return vantrel_late_open() ? NULL : LATE_FUNCTION(vantrel_create)(xmlLayout);
}

char const* vantrel_library_id_string(void)
{
    char const* const reason = vantrel_late_open();
    return reason ? reason : LATE_FUNCTION(vantrel_library_id_string)();
}

void vantrel_free(vantrel* report)
{
    CALL(vantrel_free, (void)0, report);
}

int vantrel_has_error(vantrel const* report)
{
    return CALL(vantrel_has_error, 1, report);
}

char const* vantrel_error_message(vantrel const* report)
{
    char const* const reason = vantrel_late_reason();
    return CALL(vantrel_error_message,
                reason ? reason
                       : "vantrel pointer null, this can be caused by a memory allocation failure "
                         "inside of vantrel_create, or by forgetting to call it altogether!",
                report);
}

int vantrel_set_value_double(vantrel* report, char const* metricId, double value)
{
    return CALL(vantrel_set_value_double, VANTREL_NULL_HANDLE, report, metricId, value);
}

int vantrel_set_value_int(vantrel* report, char const* metricId, int value)
{
    return CALL(vantrel_set_value_int, VANTREL_NULL_HANDLE, report, metricId, value);
}

int vantrel_set_value_string(vantrel* report, char const* metricId, char const* value)
{
    return CALL(vantrel_set_value_string, VANTREL_NULL_HANDLE, report, metricId, value);
}

int vantrel_set_dominant_metric(vantrel* report, char const* metricId)
{
    return CALL(vantrel_set_dominant_metric, VANTREL_NULL_HANDLE, report, metricId);
}

int vantrel_set_dominant_metric_advice(vantrel* report, char const* advice)
{
    return CALL(vantrel_set_dominant_metric_advice, VANTREL_NULL_HANDLE, report, advice);
}

int vantrel_set_summary_entry_advice(vantrel* report, char const* entryId, char const* advice)
{
    return CALL(vantrel_set_summary_entry_advice, VANTREL_NULL_HANDLE, report, entryId, advice);
}

int vantrel_set_section_advice(vantrel* report, char const* sectionId, char const* advice)
{
    return CALL(vantrel_set_section_advice, VANTREL_NULL_HANDLE, report, sectionId, advice);
}

int vantrel_write_html(vantrel* report, char** output)
{
    return CALL(vantrel_write_html, VANTREL_NULL_HANDLE, report, output);
}

#if defined(__x86_64__)
/* What Qt 5 makes of QVariant(): no data, type 0, and null. */
static void* invalidVariant(void* value)
{
    struct {
        void* data;
        uint32_t typeAndFlags;
        uint32_t unused;
    } const invalid = {NULL, UINT32_C(1) << 31, 0};
    return memcpy(value, &invalid, sizeof invalid);
}

/* On other processors the address for an object isn't passed as an argument. */
void* vantrel_internal_get_value(void* value, vantrel const* report, char const* metricId)
{
    return CALL(vantrel_internal_get_value, invalidVariant(value), value, report, metricId);
}
#endif
