#include "metrics/metric_value.h"

#include <QVariantMap>

#include <limits>

namespace vantrel {

namespace {

/// No double has more; Qt doesn't survive the greatest precisions.
constexpr int maxSignificantDigits = 767;

constexpr double quietNaN = std::numeric_limits<double>::quiet_NaN();

bool hasVariantType(const QVariant& value, QMetaType::Type type)
{
    return value.userType() == type;
}

QVariant emptyValueFor(MetricType type, double number)
{
    switch (type) {
    case MetricType::String:
        return QVariant(QString());
    case MetricType::Bool:
        return QVariant(false);
    case MetricType::Integer:
        return QVariant(0);
    case MetricType::Double:
        return QVariant(number);
    case MetricType::DoubleWithPrecision:
        return fromDoubleWithPrecision({number, 0});
    case MetricType::None:
        break;
    }
    return QVariant();
}

} // namespace

bool isValueOfType(MetricType type, const QVariant& value)
{
    return type != MetricType::None && inferMetricType(value) == type;
}

MetricType inferMetricType(const QVariant& value)
{
    switch (value.userType()) {
    case QMetaType::QString:
        return MetricType::String;
    case QMetaType::Bool:
        return MetricType::Bool;
    case QMetaType::Int:
        return MetricType::Integer;
    case QMetaType::Double:
        return MetricType::Double;
    default:
        return isDoubleWithPrecisionValue(value) ? MetricType::DoubleWithPrecision
                                                 : MetricType::None;
    }
}

QVariant defaultValueFor(MetricType type)
{
    return emptyValueFor(type, 0.0);
}

QVariant absentValueFor(MetricType type)
{
    return emptyValueFor(type, quietNaN);
}

bool isDoubleWithPrecisionValue(const QVariant& value)
{
    if (value.isNull() || !hasVariantType(value, QMetaType::QVariantMap))
        return false;
    const QVariantMap map = value.toMap();
    const auto number = map.constFind(QStringLiteral("value"));
    const auto precision = map.constFind(QStringLiteral("precision"));
    return number != map.constEnd() && precision != map.constEnd() &&
           hasVariantType(*number, QMetaType::Double) && hasVariantType(*precision, QMetaType::Int);
}

DoubleWithPrecision toDoubleWithPrecision(const QVariant& value)
{
    if (!isDoubleWithPrecisionValue(value))
        return {};
    const QVariantMap map = value.toMap();
    return {map.value(QStringLiteral("value")).toDouble(),
            map.value(QStringLiteral("precision")).toInt()};
}

QVariant fromDoubleWithPrecision(DoubleWithPrecision pair)
{
    return QVariantMap{{QStringLiteral("value"), pair.value},
                       {QStringLiteral("precision"), pair.precision}};
}

QString metricValueText(MetricType type, const QVariant& value)
{
    switch (type) {
    case MetricType::String:
        return value.toString();
    case MetricType::Bool:
        return value.toBool() ? QStringLiteral("1") : QStringLiteral("0");
    case MetricType::Integer:
        return QString::number(value.toInt());
    case MetricType::Double:
        return QString::number(value.toDouble(), 'g', 6);
    case MetricType::DoubleWithPrecision: {
        const DoubleWithPrecision pair = toDoubleWithPrecision(value);
        return QString::number(pair.value, 'g', qMin(pair.precision, maxSignificantDigits));
    }
    case MetricType::None:
        break;
    }
    return QString();
}

} // namespace vantrel
