#include "metrics/metric_data.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>

using namespace vantrel;

namespace {

/// @p object with @p value at the end of @p path.
QJsonObject insertedAt(QJsonObject object, QStringList path, const QJsonValue& value)
{
    const QString key = path.takeFirst();
    const QJsonObject inner = object.value(key).toObject();
    object[key] = path.isEmpty() ? value : QJsonValue(insertedAt(inner, path, value));
    return object;
}

} // namespace

TEST(MetricStore, holdsValuesOfDeclaredMetricsOnly)
{
    MetricStore store;
    EXPECT_FALSE(store.setValue("a", 1) || store.setDefaultValue("a") || store.setUnits("a", "s"));
    EXPECT_FALSE(store.hasValue("a") || store.hasDefinition("a") || store.value("a").isValid());
    EXPECT_EQ(store.definition("a"), MetricDefinition());

    store.addDefinition(declare("a", MetricType::Integer));
    EXPECT_FALSE(store.hasValue("a"));
    EXPECT_TRUE(store.setValue("a", "any form"));
    EXPECT_EQ(store.value("a"), QVariant("any form"));
    EXPECT_TRUE(store.setDefaultValue("a") && store.setUnits("a", "s"));
    EXPECT_EQ(store.value("a"), QVariant(0));
    EXPECT_EQ(store.definition("a").units, "s");
    EXPECT_FALSE(store.hasDefinition("A"));

    MetricDefinition later = declare("a", MetricType::Double);
    later.valuePath = "b.c";
    store.addDefinitions({declare("a", MetricType::Bool), later});
    EXPECT_EQ(store.definition("a"), later);
    later.version = 1;
    EXPECT_NE(store.definition("a"), later);
    store.clearDefinitions();
    EXPECT_TRUE(store.hasValue("a") && !store.hasDefinition("a"));
    EXPECT_EQ(textOf(store.toDataObject()), R"({"":null})") << "a value without a place";
    store.clearValues();
    EXPECT_EQ(textOf(store.toDataObject()), "{}");
}

TEST(MetricStore, listsMissingValuesInOrder)
{
    MetricStore store;
    QStringList missing{"kept"};
    EXPECT_TRUE(store.findMissingValues(&missing) && store.findMissingValues(nullptr));
    for (const char* id : {"b", "a.b", "a", "B", "c"})
        store.addDefinition(declare(id, MetricType::String));
    store.setDefaultValue("b");
    EXPECT_FALSE(store.findMissingValues(&missing) || store.findMissingValues(nullptr));
    EXPECT_EQ(missing.join(" "), "kept B a a.b c");
}

TEST(MetricStore, writesValuesInTheFormOfTheirType)
{
    // The others are in the golden of the JSON form.
    const std::tuple<MetricType, QVariant, QJsonValue> rows[] = {
        {MetricType::String, QString(), ""},      {MetricType::Integer, -7, -7},
        {MetricType::Double, HUGE_VAL, HUGE_VAL}, {MetricType::None, 1, QJsonValue::Null},
        {MetricType(6), 1, QJsonValue::Null},
    };
    for (const auto& [type, value, json] : rows) {
        MetricStore store;
        store.addDefinition(declare("v", type));
        store.setValue("v", value);
        EXPECT_TRUE(store.toDataObject().value("v") == json) << value.toString().toStdString();
    }
}

TEST(MetricStore, nestsValuesAsOneInsertionAfterTheOther)
{
    std::mt19937 random(3405);
    const char* const parts[] = {"a", "b", "value", "precision", ""};
    int deepened = 0;
    for (int round = 0; round < 3000; ++round) {
        MetricStore store;
        QJsonObject expected;
        const int count = 1 + int(random() % 8);
        for (int i = 0; i < count; ++i) {
            QStringList path;
            for (unsigned length = 1 + random() % 4; length > 0; --length)
                path += parts[random() % 5];
            const bool isPair = random() % 3 == 0;
            MetricDefinition metric = declare(
                QString::number(i), isPair ? MetricType::DoubleWithPrecision : MetricType::Double);
            metric.valuePath = path.join('.');
            store.addDefinition(metric);
            store.setValue(metric.id, isPair ? fromDoubleWithPrecision({std::nan(""), i})
                                             : QVariant(double(i)));
            expected = insertedAt(expected, path,
                                  isPair ? QJsonValue(QJsonObject{{"value", {}}, {"precision", i}})
                                         : QJsonValue(i));
        }
        EXPECT_EQ(textOf(store.toDataObject()), textOf(expected));
        deepened += textOf(expected).find("\"value\":{") != std::string::npos;
    }
    EXPECT_GT(deepened, 100) << "paths must have led through the keys of pairs";
}
