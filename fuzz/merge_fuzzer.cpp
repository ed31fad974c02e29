// Any text as a partial report, read into a definition without the schema's help. The definition
// stays one that sections can be made of.
#include "definition/report_definition.h"
#include "render/report_sections.h"

#include <cstdint>

using namespace vantrel;
using namespace vantrel::report;

namespace {

const QByteArray full =
    "<report name='r'><reportMetrics><reportMetric id='a' displayName='A' breakdownSubsection='s'/>"
    "<reportMetric id='b.c' displayName='B'/></reportMetrics><summary><heading>h</heading>"
    "<entry id='e' reportMetric='a'/></summary><subsections><subsection id='s' heading='S'>"
    "<entry reportMetric='b.c'/></subsection></subsections></report>";

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const ReportDefinition* const original =
        ReportDefinition::load(full, QUrl(), QString(), nullptr, 0, ReportIdScheme());
    ReportDefinition definition = *original;
    QString error;
    const QByteArray text(reinterpret_cast<const char*>(data), int(size));
    definition.merge(text, QUrl(), QString(), &error, 0);
    definition.merge(text, QUrl(), QString(), nullptr, 0);
    ReportSections sections;
    makeReportSections(definition, &sections, &error);
    return 0;
}
