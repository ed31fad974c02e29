#include "metrics/metric_data.h"

#include <gtest/gtest.h>

#include <cmath>

using namespace vantrel;

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
    QStringList missing{"kept"};
    EXPECT_TRUE(store.findMissingValues(&missing) && store.findMissingValues(nullptr));
    for (const char* id : {"b", "a.b", "a", "B"})
        store.addDefinition(declare(id, MetricType::Bool));
    store.setDefaultValue("b");
    EXPECT_FALSE(store.findMissingValues(&missing) || store.findMissingValues(nullptr));
    EXPECT_EQ(missing.join(" "), "kept B a a.b");
}

TEST(MetricStore, writesValuesInTheFormOfTheirType)
{
    // The others are in the golden of the JSON form.
    const auto written = [](MetricType type, const QVariant& value) {
        MetricStore store;
        store.addDefinition(declare("v", type));
        store.setValue("v", value);
        return store.toDataObject().value("v");
    };
    EXPECT_TRUE(written(MetricType::String, QString()) == "");
    EXPECT_TRUE(written(MetricType::Double, HUGE_VAL) == HUGE_VAL);
    EXPECT_TRUE(written(MetricType(6), 1).isNull());
}

TEST(MetricStore, nestsValuesAsOneInsertionAfterTheOther)
{
    // The values are pairs with their index as the precision.
    const std::pair<const char*, const char*> rows[] = {
        {"b..c b.d .b", R"({"":{"b":P2},"b":{"":{"c":P0},"d":P1}})"},
        {"a.b a", R"({"a":P1})"},
        {"a a.b", R"({"a":{"b":P1,"precision":0,"value":null}})"},
        {"a.b a a.c", R"({"a":{"c":P2,"precision":1,"value":null}})"},
        {"a a.value.b", R"({"a":{"precision":0,"value":{"b":P1}}})"},
        {"a.value.b a a.value.c", R"({"a":{"precision":1,"value":{"c":P2}}})"},
        {"a.value.b.c a.value a.value.b", R"({"a":{"value":{"b":P2,"precision":1,"value":null}}})"},
    };
    for (const auto& [paths, json] : rows) {
        MetricStore store;
        QString expected = json;
        int index = 0;
        for (const QString& path : QString(paths).split(' ')) {
            MetricDefinition metric = declare(path, MetricType::DoubleWithPrecision);
            metric.id = QString::number(index);
            store.addDefinition(metric);
            store.setValue(metric.id, fromDoubleWithPrecision({std::nan(""), index}));
            expected.replace("P" + metric.id, R"({"precision":%1,"value":null})");
            expected.replace("%1", metric.id);
            ++index;
        }
        EXPECT_EQ(textOf(store.toDataObject()), expected.toStdString());
    }
}
