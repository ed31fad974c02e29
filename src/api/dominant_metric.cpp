// The metric that dominated the run: named by the caller, or chosen from the summary.
#include "api/custom_report.h"

namespace vantrel {

using namespace report;

int CustomReport::setDominantMetricFromCaller(const char* metricId)
{
    if (const int code = checkText(metricId, "metric name"))
        return code;
    return setDominantMetric(QString::fromUtf8(metricId));
}

int CustomReport::setDominantMetric(const QString& id)
{
    return setBound(QStringLiteral("overview.bound1"), id);
}

int CustomReport::setSecondaryBound(const QString& id)
{
    const QString key = QStringLiteral("overview.bound2");
    if (!id.isEmpty())
        return setBound(key, id);
    for (const char* part : {".long", ".short", ".type", ".subsectionId", ".subsectionHeading"})
        setMetricValue(key + QLatin1String(part), QString(QLatin1String("")), RejectUnknown);
    return VANTREL_OK;
}

int CustomReport::setBound(const QString& key, const QString& id)
{
    const ReportMetric record = metric(id);
    const QString full = qualifiedMetricId(record, idScheme());
    if (full.isEmpty() || !metrics.hasDefinition(full)) {
        setError("metric \"%s\" not recognised", id.toUtf8().constData());
        return VANTREL_UNKNOWN_METRIC;
    }
    Subsection breakdown;
    if (!record.breakdownSubsection.isEmpty())
        breakdown = subsection(record.breakdownSubsection);
    const QString& shortName = record.displayName;
    const std::pair<const char*, QString> texts[] = {
        {".long", shortName.isEmpty() ? QString() : shortName + QLatin1String("-bound")},
        {".short", shortName},
        {".type", full},
        {".subsectionId", breakdown.id},
        {".subsectionHeading", breakdown.heading},
    };
    for (const auto& [part, text] : texts) {
        const int code = setMetricValue(key + QLatin1String(part), text, RejectUnknown);
        if (code != VANTREL_OK)
            return code;
    }
    return VANTREL_OK;
}

QString CustomReport::computeDominantMetric()
{
    const QList<SummaryEntry> entries = summary().entries;
    if (entries.isEmpty())
        return QString();
    const auto valueOf = [this](const QString& id, bool* ok) {
        return metrics.value(qualifiedMetricId(metric(id), idScheme())).toDouble(ok);
    };
    QString best = entries.first().reportMetric;
    for (const SummaryEntry& entry : entries) {
        bool bestOk = false;
        bool entryOk = false;
        const double bestValue = valueOf(best, &bestOk);
        const double entryValue = valueOf(entry.reportMetric, &entryOk);
        if (!bestOk || !entryOk) {
            setError("metric \"%s\" can't be converted to double",
                     (bestOk ? entry.reportMetric : best).toUtf8().constData());
            return QString();
        }
        if (entryValue > bestValue)
            best = entry.reportMetric;
    }
    return best;
}

} // namespace vantrel
