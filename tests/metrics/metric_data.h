#pragma once

#include "metrics/metric_store.h"

#include <QJsonDocument>

#include <string>

/// Declarations and their JSON for tests.
namespace vantrel {

/// A metric whose value lies at its id.
inline MetricDefinition declare(const QString& id, MetricType type, quint8 version = 0)
{
    MetricDefinition definition;
    definition.id = id;
    definition.valuePath = id;
    definition.type = type;
    definition.version = version;
    return definition;
}

/// One line for a metric: id, type, version, name and units, of which "-" is a null text.
template <typename Metric>
QString lineOf(const Metric& metric, int version)
{
    const auto word = [](const QString& text) { return text.isNull() ? QString("-") : text; };
    return QString("%1|%2|%3|%4|%5")
        .arg(metric.id, metricTypeName(metric.type), QString::number(version),
             word(metric.displayName), word(metric.units));
}

inline std::string textOf(const QJsonObject& object)
{
    return QJsonDocument(object).toJson(QJsonDocument::Compact).toStdString();
}

} // namespace vantrel
