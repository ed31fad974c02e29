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

inline std::string textOf(const QJsonObject& object)
{
    return QJsonDocument(object).toJson(QJsonDocument::Compact).toStdString();
}

} // namespace vantrel
