#include "definition/metric_type.h"

namespace vantrel {

namespace {

struct TypeRow {
    MetricType type;
    const char* name;
    const char* storage;
};

constexpr TypeRow typeTable[] = {
    {MetricType::String, "String", "string"},
    {MetricType::Bool, "Bool", "uint8"},
    {MetricType::Integer, "Integer", "int32"},
    {MetricType::Double, "Double", "double"},
    {MetricType::DoubleWithPrecision, "DoubleWithPrecision", "double"},
};

const TypeRow* rowOf(MetricType type)
{
    for (const TypeRow& row : typeTable) {
        if (row.type == type)
            return &row;
    }
    return nullptr;
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

} // namespace vantrel
