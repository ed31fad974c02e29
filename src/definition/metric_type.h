#pragma once

#include <QString>

namespace vantrel {

/// The types that a metric's value can have.
enum class MetricType : int {
    None = 0,
    String = 1,
    Bool = 2,
    Integer = 3,
    Double = 4,
    DoubleWithPrecision = 5,
};

/// Dotted ids and paths become nested objects, which Qt and browsers walk recursively.
constexpr int maxPathParts = 200;

/// The metric data version that this library writes.
constexpr int currentMetricVersion = 3;

/// Gives @p number back if it is a metric data version, else 0.
int metricDataVersion(int number);

/// The word for a type in JSON and in messages; null for None.
QString metricTypeName(MetricType type);
/// The word for the storage that a type takes in flat records; null for None.
QString storageTypeName(MetricType type);
/// The inverse of metricTypeName(), case-sensitive; None for any other text.
MetricType metricTypeFromName(const QString& name);

} // namespace vantrel
