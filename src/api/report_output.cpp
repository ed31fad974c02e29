// From a filled report to the bytes of a document.
#include "api/custom_report.h"
#include "definition/metric_ids.h"
#include "render/report_renderer.h"
#include "render/report_sections.h"

#include <QObject>

#include <algorithm>
#include <cstdlib>
#include <cstring>

namespace vantrel {

using namespace report;

int CustomReport::writeHtml(char** output)
{
    if (!output)
        return VANTREL_NULL_OUTPUT;
    const QVariant processes = metrics.value(QLatin1String(ids::applicationDetailsProcessesPlain));
    if (processes.isNull()) {
        setError("No value has been set for metric CORVANE_APPLICATION_DETAIL_NUM_PROCESSES");
        return VANTREL_MISSING_VALUE;
    }
    if (processes.toInt() < 1) {
        setError("%s is an invalid value for metric CORVANE_APPLICATION_DETAIL_NUM_PROCESSES. "
                 "Value must be >= 1.",
                 QByteArray::number(processes.toInt()).constData());
        return VANTREL_INVALID_COUNT;
    }
    return generateAndWrite(output, ReportOutputKind::DynamicHtml);
}

int CustomReport::generateAndWrite(char** output, ReportOutputKind kind)
{
    if (!output) {
        setError("Pointer to receive the report output buffer is NULL");
        return VANTREL_NULL_OUTPUT;
    }
    *output = nullptr;
    QByteArray bytes;
    const int code = generateReport(&bytes, kind);
    if (code != VANTREL_OK)
        return code;
    const auto size = std::size_t(bytes.size());
    // An empty document still has a buffer, so that null always means failure.
    *output = static_cast<char*>(std::malloc(std::max<std::size_t>(size, 1)));
    if (!*output) {
        setError("memory allocation (%d bytes) failed in %s", bytes.size(), "generateAndWrite");
        return VANTREL_OUT_OF_MEMORY;
    }
    std::memcpy(*output, bytes.constData(), size);
    return VANTREL_OK;
}

int CustomReport::generateReport(QByteArray* bytes, ReportOutputKind kind)
{
    if (const int code = checkDefinitionMetrics())
        return code;
    ReportSections sections;
    QString error;
    makeReportSections(*this, &sections, &error);
    setErrorFromFormat(error);
    if (hasError())
        return VANTREL_SECTION_FAILED;
    if (const int code = completeDominantMetric())
        return code;
    if (const int code = checkMissingValues())
        return code;
    *bytes = renderReport(kind, metrics, sections);
    return VANTREL_OK;
}

int CustomReport::checkDefinitionMetrics()
{
    for (const ReportMetric& metric : ReportDefinition::metrics()) {
        if (metrics.hasValue(qualifiedMetricId(metric, idScheme())) ||
            metric.id == QLatin1String(ids::overviewBound1Long) ||
            metric.id == QLatin1String(ids::overviewBound1Short) ||
            metric.id == QLatin1String(ids::overviewBound1Type))
            continue;
        setErrorFromFormat(QObject::tr("No metric value has been set for '%1'").arg(metric.id));
        return VANTREL_MISSING_VALUE;
    }
    return VANTREL_OK;
}

int CustomReport::completeDominantMetric()
{
    const QString dominant = computeDominantMetric();
    if (hasError())
        return VANTREL_MISSING_VALUE;
    for (const char* id :
         {ids::overviewBound1Long, ids::overviewBound1Short, ids::overviewBound1Type,
          ids::overviewBound1SubsectionId, ids::overviewBound1SubsectionHeading}) {
        if (!metrics.hasValue(QLatin1String(id))) {
            setDominantMetric(dominant);
            break;
        }
    }
    return VANTREL_OK;
}

int CustomReport::checkMissingValues()
{
    QStringList missing;
    if (metrics.findMissingValues(&missing))
        return VANTREL_OK;
    setErrorFromFormat(
        QObject::tr("No metric values have been set for the following metrics:\n        %1")
            .arg(missing.join(QLatin1String("\n        "))));
    return VANTREL_MISSING_VALUE;
}

} // namespace vantrel
