#include "metrics/metric_value.h"

#include <QVariantMap>

#include <gtest/gtest.h>

using namespace vantrel;

namespace {

QVariant pairOf(const QVariant& value, const QVariant& precision)
{
    return QVariantMap{{"value", value}, {"precision", precision}, {"extra", 1}};
}

} // namespace

TEST(MetricType, hasWords)
{
    const char* const words[][2] = {{"String", "string"},
                                    {"Bool", "uint8"},
                                    {"Integer", "int32"},
                                    {"Double", "double"},
                                    {"DoubleWithPrecision", "double"}};
    for (int code = 1; code <= 5; ++code) {
        EXPECT_EQ(metricTypeName(MetricType(code)), words[code - 1][0]);
        EXPECT_EQ(storageTypeName(MetricType(code)), words[code - 1][1]);
        EXPECT_EQ(metricTypeFromName(words[code - 1][0]), MetricType(code));
    }
    EXPECT_TRUE(metricTypeName(MetricType::None).isNull() &&
                storageTypeName(MetricType::None).isNull());
    EXPECT_EQ(metricTypeFromName("double"), MetricType::None);
}

TEST(MetricType, fitsExactlyOneForm)
{
    const std::tuple<const char*, QVariant, int> rows[] = {
        {"text", "1", 1},
        {"null text", QString(), 1},
        {"bool", true, 2},
        {"int", 1, 3},
        {"long", qlonglong(1), 0},
        {"double", 1.0, 4},
        {"invalid", QVariant(), 0},
        {"null of a type", QVariant(QVariant::Double), 4},
        {"pair", pairOf(1.0, 2), 5},
        {"int value", pairOf(1, 2), 0},
        {"double precision", pairOf(1.0, 2.0), 0},
        {"no precision", QVariantMap{{"value", 1.0}}, 0},
        {"no value", QVariantMap{{"precision", 2}}, 0},
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

TEST(MetricType, hasDefaultAndAbsentValues)
{
    const char* const absentTexts[] = {"", "0", "0", "nan", "nan"};
    for (int code = 1; code <= 5; ++code) {
        const MetricType type = MetricType(code);
        const QVariant value = defaultValueFor(type);
        const QVariant absent = absentValueFor(type);
        EXPECT_TRUE(isValueOfType(type, value) && isValueOfType(type, absent)) << code;
        EXPECT_EQ(metricValueText(type, value), code == 1 ? "" : "0") << code;
        EXPECT_EQ(metricValueText(type, absent), absentTexts[code - 1]) << code;
        EXPECT_TRUE(code != 1 || (value.toString().isNull() && absent.toString().isNull()));
        EXPECT_EQ(toDoubleWithPrecision(absent).precision, 0);
    }
    EXPECT_FALSE(defaultValueFor(MetricType::None).isValid() ||
                 absentValueFor(MetricType::None).isValid());
}

TEST(MetricType, printsValues)
{
    const std::tuple<int, QVariant, const char*> rows[] = {
        {1, "a\n", "a\n"},
        {2, true, "1"},
        {2, false, "0"},
        {3, -2147483647 - 1, "-2147483648"},
        {4, 1234567.0, "1.23457e+06"},
        {5, fromDoubleWithPrecision({1234567, 3}), "1.23e+06"},
    };
    for (const auto& [type, value, text] : rows)
        EXPECT_EQ(metricValueText(MetricType(type), value), text) << text;
    EXPECT_TRUE(metricValueText(MetricType::None, 1).isNull());
}

TEST(MetricType, knowsThreeDataVersions)
{
    for (int number = -1; number <= 4; ++number)
        EXPECT_EQ(metricDataVersion(number), number >= 1 && number <= 3 ? number : 0);
}
