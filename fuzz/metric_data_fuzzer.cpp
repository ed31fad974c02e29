// Any text as a metric data file. What can be read is written and read back.
#include "metrics/metric_store.h"

#include <QJsonDocument>

#include <cstdint>
#include <cstdlib>

using namespace vantrel;

namespace {

QString write(const MetricStore& store)
{
    const QJsonObject file{{QStringLiteral("metricData"), store.toMetricDataObject()},
                           {QStringLiteral("data"), store.toDataObject()}};
    return QString::fromUtf8(QJsonDocument(file).toJson());
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QString text = QString::fromUtf8(reinterpret_cast<const char*>(data), int(size));
    MetricStore store;
    QString error;
    if (store.readJson(text, &error) && !error.isEmpty())
        std::abort();
    const QStringList ids = store.toMetricDataObject().keys();
    store.metricRecords(ids);
    MetricStore again;
    again.readJson(write(store), &error);
    if (again.toMetricDataObject() != store.toMetricDataObject())
        std::abort();
    return 0;
}
