// Any text as markup with placeholders.
#include "render/placeholders.h"

#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const vantrel::report::ReportDefinition definition = [] {
        vantrel::report::ReportDefinition made;
        for (const char* id : {"a", "b.c", "*"}) {
            vantrel::report::ReportMetric metric;
            metric.id = QLatin1String(id);
            made.appendMetric(metric);
        }
        return made;
    }();
    const QString text = QString::fromUtf8(reinterpret_cast<const char*>(data), int(size));
    QString error;
    const QString expanded = vantrel::expandPlaceholders(definition, text, &error);
    if (!error.isEmpty() && !expanded.isEmpty())
        std::abort();
    if (!text.contains(QLatin1String("${")) && expanded != text)
        std::abort();
    return 0;
}
