#include "metrics/metric_records.h"

#include "definition/builtin_metrics.h"
#include "metrics/metric_store.h"

namespace vantrel {

namespace {

QString globalName(const QString& id, const QString& valuePath)
{
    const QLatin1String details("com.corvane.applicationDetails.");
    QString name = QLatin1String("com.corvane.") + valuePath;
    if (isPlainMetric(id))
        name.chop(int(qstrlen(".plain")));
    if (name.startsWith(details))
        name = QLatin1String("com.corvane.application.") + name.mid(details.size());
    return name;
}

} // namespace

bool MetricRecord::operator==(const MetricRecord& other) const
{
    return id == other.id && value == other.value && type == other.type && units == other.units &&
           displayName == other.displayName;
}

QList<MetricRecord> MetricStore::metricRecords(const QStringList& ids) const
{
    const QSet<QString> wanted(ids.begin(), ids.end());
    QList<MetricRecord> records;
    for (auto it = values.begin(); it != values.end(); ++it) {
        if (!wanted.contains(it.key()))
            continue;
        const MetricDefinition metric = definition(it.key());
        records.append({globalName(it.key(), metric.valuePath),
                        metricValueText(metric.type, it.value()), storageTypeName(metric.type),
                        metric.units, metric.displayName});
    }
    return records;
}

} // namespace vantrel
