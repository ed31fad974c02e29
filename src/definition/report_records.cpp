#include "definition/report_records.h"

namespace vantrel::report {

namespace {

QString withPrefix(const QString& prefix, const QString& id)
{
    return prefix.isEmpty() ? id : prefix + u'.' + id;
}

} // namespace

QString qualifiedMetricId(const ReportMetric& metric, const ReportIdScheme& scheme)
{
    return metric.corvaneMetricVersion != 0 ? metric.id
                                            : withPrefix(scheme.metricPrefix, metric.id);
}

QString qualifiedSubsectionId(const QString& id, const ReportIdScheme& scheme)
{
    return withPrefix(scheme.subsectionPrefix, id);
}

QString qualifiedSummaryId(const QString& id, const ReportIdScheme& scheme)
{
    return withPrefix(scheme.summaryPrefix, id);
}

QString summaryAdviceKey(const QString& id, const ReportIdScheme& scheme)
{
    return qualifiedSummaryId(id, scheme) + QLatin1String(".advice");
}

QString subsectionAdviceKey(const QString& id, const ReportIdScheme& scheme, int n)
{
    return QStringLiteral("%1.advice%2").arg(qualifiedSubsectionId(id, scheme), QString::number(n));
}

} // namespace vantrel::report
