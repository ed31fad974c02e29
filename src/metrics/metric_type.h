#pragma once

#include <QString>
#include <QVariant>

namespace vantrel {

/// The types that a metric's value can have. A value is stored in exactly the form of its type.
enum class MetricType : int {
    None = 0,
    String = 1,
    Bool = 2,
    Integer = 3,
    Double = 4,
    DoubleWithPrecision = 5,
};

/// A double together with the number of significant digits with which it is printed.
struct DoubleWithPrecision {
    double value = 0.0;
    int precision = 0;
};

/// Dotted ids and paths become nested objects, which Qt and browsers walk recursively.
constexpr int mostPathParts = 200;

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

/// Whether @p value has exactly the form of @p type. Nothing is converted: an int is no double.
bool isValueOfType(MetricType type, const QVariant& value);
/// The type whose form @p value has, or None.
MetricType inferMetricType(const QVariant& value);

/// What a report holds for a metric that must exist but that nobody has set.
QVariant defaultValueFor(MetricType type);
/// What a metric receives from data that is older than the metric.
QVariant absentValueFor(MetricType type);

/// Whether @p value is a map with a double under "value" and an int under "precision".
bool isDoubleWithPrecisionValue(const QVariant& value);
/// The pair in @p value; zeros if it hasn't the form.
DoubleWithPrecision toDoubleWithPrecision(const QVariant& value);
QVariant fromDoubleWithPrecision(DoubleWithPrecision pair);

/// The plain text of a stored value; null for None.
QString metricValueText(MetricType type, const QVariant& value);

} // namespace vantrel
