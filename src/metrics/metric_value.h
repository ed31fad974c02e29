#pragma once

#include "definition/metric_type.h"

#include <QString>
#include <QVariant>

/// Values as they are stored: each in exactly the form of its metric's type.
namespace vantrel {

/// A double together with the number of significant digits with which it is printed.
struct DoubleWithPrecision {
    double value = 0.0;
    int precision = 0;
};

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
