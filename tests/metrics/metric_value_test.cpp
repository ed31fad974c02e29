#include "metrics/metric_value.h"

#include <QVariantMap>

#include <gtest/gtest.h>

#include <array>

using namespace vantrel;

namespace {

QVariant pairOf(const QVariant& value, const QVariant& precision)
{
    return QVariantMap{{"value", value}, {"precision", precision}, {"extra", 1}};
}

} // namespace

TEST(MetricType, hasWordsAndEmptyValues)
{
    // Name, storage, and the text of the absent value.
    const std::array<const char*, 3> rows[] = {{"String", "string", ""},
                                               {"Bool", "uint8", "0"},
                                               {"Integer", "int32", "0"},
                                               {"Double", "double", "nan"},
                                               {"DoubleWithPrecision", "double", "nan"}};
    for (int code = 1; code <= 5; ++code) {
        const auto& [name, storage, absentText] = rows[code - 1];
        const MetricType type = MetricType(code);
        EXPECT_EQ(metricTypeName(type), name);
        EXPECT_EQ(storageTypeName(type), storage);
        EXPECT_EQ(metricTypeFromName(name), type);
        const QVariant value = defaultValueFor(type);
        const QVariant absent = absentValueFor(type);
        EXPECT_TRUE(isValueOfType(type, value) && isValueOfType(type, absent)) << code;
        EXPECT_EQ(metricValueText(type, value), code == 1 ? "" : "0") << code;
        EXPECT_EQ(metricValueText(type, absent), absentText) << code;
        EXPECT_TRUE(code != 1 || (value.toString().isNull() && absent.toString().isNull()));
        EXPECT_EQ(toDoubleWithPrecision(absent).precision, 0);
    }
    const MetricType none = MetricType::None;
    EXPECT_EQ(metricTypeFromName("double"), none);
    EXPECT_TRUE(metricTypeName(none).isNull() && storageTypeName(none).isNull());
    EXPECT_FALSE(defaultValueFor(none).isValid() || absentValueFor(none).isValid());
    EXPECT_TRUE(metricValueText(none, 1).isNull());
}

TEST(MetricType, fitsExactlyOneForm)
{
    const std::tuple<const char*, QVariant, int> rows[] = {
        {"text", "1", 1},
        {"bool", true, 2},
        {"int", 1, 3},
        {"long", qlonglong(1), 0},
        {"double", 1.0, 4},
        {"invalid", QVariant(), 0},
        {"pair", pairOf(1.0, 2), 5},
        {"int value", pairOf(1, 2), 0},
        {"double precision", pairOf(1.0, 2.0), 0},
        {"no precision", QVariantMap{{"value", 1.0}}, 0},
        {"hash", QVariantHash{{"value", 1.0}, {"precision", 2}}, 0},
    };
    for (const auto& [name, value, type] : rows) {
        SCOPED_TRACE(name);
        EXPECT_EQ(inferMetricType(value), MetricType(type));
        for (int other = 0; other <= 5; ++other)
            EXPECT_EQ(isValueOfType(MetricType(other), value), type != 0 && other == type);
        EXPECT_EQ(isDoubleWithPrecisionValue(value), type == 5);
        const DoubleWithPrecision pair = toDoubleWithPrecision(value);
        EXPECT_EQ(pair.value, type == 5 ? 1.0 : 0.0);
        EXPECT_EQ(pair.precision, type == 5 ? 2 : 0);
    }
}
