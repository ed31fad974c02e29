#include "metrics/value_definitions.h"

#include "definition/builtin_metrics.h"

#include <QObject>

namespace vantrel {

using namespace report;

namespace {

MetricDefinition declare(const ReportMetric& metric, const ReportIdScheme& scheme)
{
    MetricDefinition definition;
    definition.id = qualifiedMetricId(metric, scheme);
    definition.valuePath = definition.id;
    definition.type = metric.type;
    definition.units = metric.units;
    definition.displayName = metric.displayName;
    definition.version = quint8(metric.corvaneMetricVersion);
    return definition;
}

MetricDefinition declareAdvice(const QString& key, const QString& displayName)
{
    MetricDefinition definition;
    definition.id = key;
    definition.valuePath = key;
    definition.type = MetricType::String;
    definition.displayName = displayName;
    return definition;
}

} // namespace

QList<MetricDefinition> reportValueDefinitions(const ReportDefinition& definition)
{
    const ReportIdScheme& scheme = definition.idScheme();
    QList<MetricDefinition> list;
    for (const ReportMetric& metric : definition.metrics())
        list.append(declare(metric, scheme));
    for (const SummaryEntry& entry : definition.summary().entries)
        list.append(declareAdvice(summaryAdviceKey(entry.id, scheme), QObject::tr("Advice")));
    for (const Subsection& subsection : definition.subsections()) {
        for (int n = 1; n <= subsection.maxAdviceStrings; ++n) {
            list.append(declareAdvice(subsectionAdviceKey(subsection.id, scheme, n),
                                      QObject::tr("Advice %1").arg(n)));
        }
    }
    for (const auto& builtins :
         {builtinOverviewMetrics(currentMetricVersion), builtinHeaderMetrics(currentMetricVersion),
          builtinValueMetrics(currentMetricVersion)}) {
        for (const ReportMetric& metric : builtins)
            list.append(declare(metric, scheme));
    }
    return list;
}

} // namespace vantrel
