#include "metrics/metric_type.h"

#include <QVariantMap>

#include <limits>

namespace vantrel {

namespace {

struct TypeRow {
    MetricType type;
    QMetaType::Type variant;
    const char* name;
    const char* storage;
};

constexpr TypeRow typeTable[] = {
    {MetricType::String, QMetaType::QString, "String", "string"},
    {MetricType::Bool, QMetaType::Bool, "Bool", "uint8"},
    {MetricType::Integer, QMetaType::Int, "Integer", "int32"},
    {MetricType::Double, QMetaType::Double, "Double", "double"},
    {MetricType::DoubleWithPrecision, QMetaType::QVariantMap, "DoubleWithPrecision", "double"},
};

/// No double has more; Qt doesn't survive the greatest precisions.
constexpr int mostSignificantDigits = 767;

constexpr double quietNaN = std::numeric_limits<double>::quiet_NaN();

const TypeRow* rowOf(MetricType type)
{
    for (const TypeRow& row : typeTable) {
        if (row.type == type)
            return &row;
    }
    return nullptr;
}

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

int metricDataVersion(int number)
{
    return number >= 1 && number <= currentMetricVersion ? number : 0;
}

QString metricTypeName(MetricType type)
{
    const TypeRow* row = rowOf(type);
    return row ? QString::fromLatin1(row->name) : QString();
}

QString storageTypeName(MetricType type)
{
    const TypeRow* row = rowOf(type);
    return row ? QString::fromLatin1(row->storage) : QString();
}

MetricType metricTypeFromName(const QString& name)
{
    for (const TypeRow& row : typeTable) {
        if (name == QLatin1String(row.name))
            return row.type;
    }
    return MetricType::None;
}

bool isValueOfType(MetricType type, const QVariant& value)
{
    if (type == MetricType::DoubleWithPrecision)
        return isDoubleWithPrecisionValue(value);
    const TypeRow* row = rowOf(type);
    return row && hasVariantType(value, row->variant);
}

MetricType inferMetricType(const QVariant& value)
{
    for (const TypeRow& row : typeTable) {
        if (isValueOfType(row.type, value))
            return row.type;
    }
    return MetricType::None;
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
        return QString::number(pair.value, 'g', qMin(pair.precision, mostSignificantDigits));
    }
    case MetricType::None:
        break;
    }
    return QString();
}

} // namespace vantrel
