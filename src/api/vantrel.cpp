// The exported interface. A call that sets or writes looks at its handle and the latch, then calls
// one member of the report inside the guard, and returns its code.
#include "api/custom_report.h"
#include "api/library_id.h"
#include "api/process_setup.h"
#include "api/utf8_text.h"
#include "host/process_end.h"

#include <new>

using vantrel::CustomReport;

namespace {

/// The one place where exceptions stop, and where the latch is tested.
template <typename Call>
int guarded(CustomReport* report, const char* context, Call call)
{
    if (!report)
        return VANTREL_NULL_HANDLE;
    if (report->hasError())
        return VANTREL_REPORT_IN_ERROR;
    try {
        return call();
    } catch (...) {
        return report->handleException(context);
    }
}

} // namespace

vantrel_handle* vantrel_create(char const* xmlLayout)
{
    try {
        return !vantrel::processEnds() && vantrel::setUpProcess() ? new (std::nothrow)
                                                                        vantrel_handle(xmlLayout)
                                                                  : nullptr;
    } catch (...) {
        return nullptr;
    }
}

void vantrel_free(vantrel_handle* report)
{
    delete report;
}

int vantrel_has_error(vantrel_handle const* report)
{
    return !report || report->hasError() ? 1 : 0;
}

char const* vantrel_error_message(vantrel_handle const* report)
{
    if (!report) {
        return "vantrel pointer null, this can be caused by a memory allocation failure inside of "
               "vantrel_create, or by forgetting to call it altogether!";
    }
    return report->hasError() ? report->errorMessage() : nullptr;
}

QVariant vantrel_internal_get_value(vantrel_handle const* report, char const* metricId)
{
    try {
        return report ? report->metricValue(QString::fromUtf8(metricId)) : QVariant();
    } catch (...) {
        return QVariant();
    }
}

int vantrel_set_value_double(vantrel_handle* report, char const* metricId, double value)
{
    return guarded(report, __func__, [&] { return report->setValueFromCaller(metricId, value); });
}

int vantrel_set_value_int(vantrel_handle* report, char const* metricId, int value)
{
    return guarded(report, __func__, [&] { return report->setValueFromCaller(metricId, value); });
}

int vantrel_set_value_string(vantrel_handle* report, char const* metricId, char const* value)
{
    // These two tests come before that of the handle and write over an earlier message.
    if (!value) {
        report->setError("null metric value found");
        return VANTREL_NULL_STRING;
    }
    if (vantrel::isTooLong(value) || !vantrel::isValidUtf8(value))
        return report->checkText(value, "metric value");
    return guarded(report, __func__, [&] { return report->setStringFromCaller(metricId, value); });
}

int vantrel_set_dominant_metric(vantrel_handle* report, char const* metricId)
{
    return guarded(report, __func__, [&] { return report->setDominantMetricFromCaller(metricId); });
}

int vantrel_set_dominant_metric_advice(vantrel_handle* report, char const* advice)
{
    return guarded(report, __func__, [&] { return report->setDominantMetricAdvice(advice); });
}

int vantrel_set_summary_entry_advice(vantrel_handle* report, char const* entryId,
                                     char const* advice)
{
    return guarded(report, __func__,
                   [&] { return report->setSummaryAdviceFromCaller(entryId, advice); });
}

int vantrel_set_section_advice(vantrel_handle* report, char const* sectionId, char const* advice)
{
    return guarded(report, __func__,
                   [&] { return report->setSectionAdviceFromCaller(sectionId, advice); });
}

int vantrel_write_html(vantrel_handle* report, char** output)
{
    return guarded(report, __func__, [&] { return report->writeHtml(output); });
}

char const* vantrel_library_id_string(void)
{
    return vantrel::libraryIdText();
}
