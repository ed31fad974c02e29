// Any text as a definition. Where it makes a report, all its metrics are set and the page written.
#include "api/c_interface.h"
#include "api/custom_report.h"

#include <cstdint>
#include <cstdlib>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string xml(reinterpret_cast<const char*>(data), size);
    vantrel_handle* report = vantrel_create(xml.c_str());
    if (!vantrel_has_error(report)) {
        vantrel_set_value_string(report, CORVANE_APPLICATION_DETAIL_EXE_NAME, "fuzz");
        vantrel_set_value_int(report, CORVANE_APPLICATION_DETAIL_NUM_PROCESSES, 1);
        for (const vantrel::report::ReportMetric& metric : report->ReportDefinition::metrics())
            vantrel_set_value_double(report, metric.id.toUtf8().constData(), 1);
        char* page = nullptr;
        vantrel_write_html(report, &page);
        std::free(page);
    } else if (!vantrel_error_message(report)) {
        std::abort();
    }
    vantrel_free(report);
    return 0;
}
