#include "metrics/metric_data.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTextCodec>

#include <gtest/gtest.h>

#include <cmath>
#include <fstream>

using namespace vantrel;

namespace {

constexpr MetricType String = MetricType::String;
constexpr MetricType Bool = MetricType::Bool;
constexpr MetricType Integer = MetricType::Integer;
constexpr MetricType Double = MetricType::Double;
constexpr MetricType Precise = MetricType::DoubleWithPrecision;

QJsonObject object(const QByteArray& text)
{
    const QJsonDocument document = QJsonDocument::fromJson(text);
    EXPECT_TRUE(document.isObject()) << text.toStdString();
    return document.object();
}

} // namespace

TEST(MetricReader, readsDefinitions)
{
    // The message, or null, and what was read as toMetricDataObject() writes it.
    const QByteArray longPath = QByteArray("a.").repeated(200) + 'a';
    const std::tuple<QByteArray, const char*, const char*> rows[] = {
        {R"({"a":{"value":"x.y","type":"Double","units":"s","displayName":"A","version":3}})",
         nullptr,
         R"({"a":{"displayName":"A","type":"Double","units":"s","value":"x.y","version":3}})"},
        {R"({"a":{"value":"a","type":"Bool","units":1,"displayName":null,"version":"3"},"c":[]})",
         nullptr, R"({"a":{"type":"Bool","value":"a"}})"},
        {R"({"a":{"value":"a","type":"Bool","units":"","version":257.9}})", nullptr,
         R"({"a":{"type":"Bool","units":"","value":"a","version":1}})"},
        {R"({"a":{"type":"String"}})", "Field value not found for metric a", "{}"},
        {R"({"%1":{"value":"a","type":null}})", "Field type not found for metric %1", "{}"},
        {R"({"a":{"value":"a","type":"double"}})", "", "{}"},
        {R"({"a":{"value":"a","type":"Bool"},"b":{"value":"","type":"Bool"}})", "",
         R"({"a":{"type":"Bool","value":"a"}})"},
        {R"({"":{"value":"a","type":"Bool"}})", "", "{}"},
        {R"({"m":{"type":"Bool","value":")" + longPath + "\"}}",
         "The value of metric m has a path of more than 200 parts.", "{}"},
    };
    for (const auto& [entries, message, kept] : rows) {
        SCOPED_TRACE(entries.left(99).toStdString());
        MetricStore store;
        store.addDefinition(declare("old", MetricType::Bool));
        QString error;
        EXPECT_EQ(store.readDefinitions(object(entries), &error), !message);
        EXPECT_EQ(error, message ? message : "");
        EXPECT_EQ(textOf(store.toMetricDataObject()), kept);
        EXPECT_EQ(store.readDefinitions(object(entries), nullptr), !message);
    }
}

TEST(MetricReader, readsValuesOfEachType)
{
    // The text of the stored value, or the message.
    const std::tuple<MetricType, const char*, const char*> rows[] = {
        {String, R"("x")", "x"},
        {String, "1", "Metric x.m value is not a string"},
        {Bool, "true", "1"},
        {Bool, "1", "Metric x.m value is not a boolean"},
        {Integer, "-2.9", "-2"},
        {Integer, "null", "Metric x.m value is not an integer"},
        {Double, "1234567", "1.23457e+06"},
        {Double, "null", "nan"},
        {Double, "true", "Metric x.m value is not a double"},
        {Precise, R"({"value":1.23456,"precision":3.9,"more":0})", "1.23"},
        {Precise, R"({"value":null,"precision":3})", "nan"},
        {Precise, R"({"value":1,"precision":1e300})", "1"},
        {Precise, "1", "Unable to parse double precision"},
        {Precise, R"({"precision":1})", "Unable to find double precision value"},
        {Precise, R"({"value":"1","precision":1})", "Invalid double precision value"},
        {Precise, R"({"value":1})", "Unable to find double precision precision"},
        {Precise, R"({"value":1,"precision":null})", "Invalid double precision precision"},
        {MetricType::None, "1", ""},
    };
    for (const auto& [type, json, text] : rows) {
        SCOPED_TRACE(metricTypeName(type).toStdString() + ' ' + json);
        MetricStore store;
        MetricDefinition metric = declare("m", type);
        metric.valuePath = "x.m";
        store.addDefinition(metric);
        store.setValue("m", "old");
        QString error;
        const bool isRead =
            store.readValues(object(QByteArray("{\"x\":{\"m\":") + json + "}}"), &error);
        EXPECT_EQ(error.isEmpty() ? metricValueText(type, store.value("m")) : error, text);
        EXPECT_EQ(isValueOfType(type, store.value("m")), isRead);
        EXPECT_EQ(isRead, error.isEmpty() && type != MetricType::None);
    }
}

TEST(MetricReader, comparesVersionsAndWalksPaths)
{
    // Whether the metric is newer than the data, and so gets its absent value.
    const std::tuple<const char*, quint8, const char*, bool> rows[] = {
        {"a.b", 1, R"({"version":4})", true},
        {"a.b", 2, R"({"version":1,"data":{}})", true},
        {"a.b", 2, R"({"version":3,"data":{"version":1}})", true},
        {"a.b", 2, R"({"version":1,"data":{"version":3}})", false},
        {"a.b", 0, R"({"a.b":1})", false},
        {"version", 0, R"({"data":{},"m":2,"version":3})", false},
    };
    QString error;
    for (const auto& [id, version, data, isNewer] : rows) {
        SCOPED_TRACE(data);
        MetricStore store;
        store.addDefinition(declare(id, Double, version));
        EXPECT_EQ(store.readJson(data, &error), isNewer);
        EXPECT_EQ(error, isNewer ? QString() : QString("Unable to access value ") + id);
        EXPECT_EQ(std::isnan(store.value(id).toDouble()), isNewer);
    }
    MetricStore store;
    store.addDefinitions({declare("a", Integer), declare("b", Integer), declare("c", Integer)});
    error.clear();
    EXPECT_FALSE(store.readValues(object(R"({"a":1,"c":3})"), &error));
    EXPECT_TRUE(store.hasValue("a") && !store.hasValue("c")) << "kept as far as it came";
    EXPECT_FALSE(store.readValues(object(R"({"a":1,"b":2,"c":3})"), &error)) << "a stale message";
    EXPECT_TRUE(store.readValues(object(R"({"a":1,"b":2,"c":3})"), nullptr));
}

TEST(MetricReader, refusesMalformedText)
{
    MetricStore store;
    store.addDefinition(declare("m", Integer, 3));
    QString error;
    for (const QString& text : {QString("{} {}"), QString("[").repeated(100000)}) {
        EXPECT_FALSE(store.readJson(text, &error) || store.readJson(text, nullptr));
        EXPECT_EQ(error, "malformed JSON input");
    }
    EXPECT_FALSE(store.readJson("[]", &error));
    EXPECT_EQ(error, "Expected JSON data to be an object");
    EXPECT_TRUE(store.readJson("{}", &error));
    EXPECT_EQ(error, "") << "a new reading forgets the old message";
}

TEST(MetricReader, takesDefinitionsOnceAndValuesFromEitherPlace)
{
    const QString text = R"({"metricData":{"m":{"value":"m","type":"Integer"}},"m":1,"data":%1})";
    MetricStore store;
    QString error;
    EXPECT_TRUE(store.readJson(text.arg(R"({"m":2})"), &error)) << error.toStdString();
    EXPECT_EQ(store.value("m"), QVariant(2));
    EXPECT_TRUE(store.readJson(text.arg("[2]"), &error)) << "the older, flat form";
    EXPECT_EQ(store.value("m"), QVariant(1));

    store.clearDefinitions();
    store.addDefinition(declare("n", Integer));
    EXPECT_FALSE(store.readJson(text.arg(R"({"m":2})"), &error));
    EXPECT_EQ(error, "Unable to access value n") << "a store keeps the definitions that it has";
    store.clearDefinitions();
    EXPECT_FALSE(store.readJson(R"({"metricData":{"m":{"value":"m","type":"x"}},"m":1})", &error));
    EXPECT_EQ(error, QString());
    EXPECT_TRUE(store.readJson(R"({"metricData":{},"m":1})", &error)) << "nothing is missing";
}

TEST(MetricReader, readsFiles)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath("data.json");
    std::ofstream(path.toStdString())
        << "{\"metricData\":{\"m\":{\"value\":\"m\",\"type\":\"String\"}},\r\n\"m\":\"\xC3\xA9\"}";
    MetricStore store;
    QString error = "stale";
    QFile file(path);
    QTextCodec::setCodecForLocale(QTextCodec::codecForName("ISO-8859-1"));
    ASSERT_TRUE(store.readFile(file, &error)) << error.toStdString();
    EXPECT_EQ(store.value("m").toString().toStdString(), "\xC3\xA9");
    EXPECT_FALSE(file.isOpen());
    file.setFileName("none");
    EXPECT_FALSE(store.readFile(file, &error));
    EXPECT_EQ(error, "Unable to open file none");
}

TEST(MetricRecords, haveGlobalNames)
{
    MetricDefinition precise = declare("precise", Precise);
    precise.valuePath = "applicationDetails.p";
    precise.units = "s";
    precise.displayName = "P";
    MetricStore store;
    store.addDefinitions({declare("applicationDetails.exeName", String), precise,
                          declare("energy.total.plain", Double), declare("other.plain", Bool)});
    QStringList ids{"precise", "other.plain", "energy.total.plain", "applicationDetails.exeName"};
    for (const QString& id : ids)
        store.setDefaultValue(id);
    store.addDefinition(declare("unset", Integer));
    ids += {"unset", "unknown", "Precise"};
    const QList<MetricRecord> expected = {
        {"com.corvane.application.exeName", "", "string", {}, {}},
        {"com.corvane.energy.total", "0", "double", {}, {}},
        {"com.corvane.other.plain", "0", "uint8", {}, {}},
        {"com.corvane.application.p", "0", "double", "s", "P"},
    };
    EXPECT_EQ(store.metricRecords(ids), expected);
    store.clearDefinitions();
    const MetricRecord undeclared{"com.corvane.", {}, {}, {}, {}};
    EXPECT_EQ(store.metricRecords({"other.plain"}), QList<MetricRecord>{undeclared});
}
