#include "metrics/metric_data.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <cmath>
#include <fstream>
#include <limits>
#include <random>

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
    const struct {
        const char* entries;
        bool isRead;
        const char* error;
        const char* kept; ///< as toMetricDataObject() writes what was read
    } rows[] = {
        {R"({})", true, "", "{}"},
        {R"({"a":{"value":"x.y","type":"Double","units":"s","displayName":"A","version":3}})", true,
         "", R"({"a":{"displayName":"A","type":"Double","units":"s","value":"x.y","version":3}})"},
        {R"({"a":{"value":"a","type":"Bool","units":1,"displayName":null,"version":"3"}})", true,
         "", R"({"a":{"type":"Bool","value":"a"}})"},
        {R"({"a":{"value":"a","type":"Bool","units":"","version":257.9}})", true, "",
         R"({"a":{"type":"Bool","units":"","value":"a","version":1}})"},
        {R"({"a":{"value":"a","type":"Bool","version":1e300}})", true, "",
         R"({"a":{"type":"Bool","value":"a","version":255}})"},
        {R"({"a":1,"b":[],"c":{"value":"c","type":"String"}})", true, "",
         R"({"c":{"type":"String","value":"c"}})"},
        {R"({"a":{"type":"String"}})", false, "Field value not found for metric a", "{}"},
        {R"({"%1":{"value":"a","type":null}})", false, "Field type not found for metric %1", "{}"},
        {R"({"a":{"value":"a","type":"double"}})", false, "", "{}"},
        {R"({"a":{"value":"a","type":"Bool"},"b":{"value":"","type":"Bool"}})", false, "",
         R"({"a":{"type":"Bool","value":"a"}})"},
        {R"({"":{"value":"a","type":"Bool"}})", false, "", "{}"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.entries);
        MetricStore store;
        store.addDefinition(declare("old", MetricType::Bool));
        QString error;
        EXPECT_EQ(store.readDefinitions(object(row.entries), &error), row.isRead);
        EXPECT_EQ(error.toStdString(), row.error);
        EXPECT_EQ(textOf(store.toMetricDataObject()), row.kept);
        EXPECT_EQ(store.readDefinitions(object(row.entries), nullptr), row.isRead);
    }
    const QString path = QString("a.").repeated(200) + "a";
    const QJsonObject deep{{"m", QJsonObject{{"value", path}, {"type", "Bool"}}}};
    QString error;
    EXPECT_FALSE(MetricStore().readDefinitions(deep, &error));
    EXPECT_EQ(error, "The value of metric m has a path of more than 200 parts.");
}

TEST(MetricReader, readsValuesOfEachType)
{
    const struct {
        MetricType type;
        const char* json;
        const char* text; ///< of the stored value; null if it is refused
        const char* error = "";
    } rows[] = {
        {String, R"("x")", "x"},
        {String, "1", nullptr, "Metric x.m value is not a string"},
        {Bool, "true", "1"},
        {Bool, "1", nullptr, "Metric x.m value is not a boolean"},
        {Integer, "2.9", "2"},
        {Integer, "-2.9", "-2"},
        {Integer, "1e10", "2147483647"},
        {Integer, "-1e300", "-2147483648"},
        {Integer, "null", nullptr, "Metric x.m value is not an integer"},
        {Double, "0.1", "0.1"},
        {Double, "null", "nan"},
        {Double, "true", nullptr, "Metric x.m value is not a double"},
        {Precise, R"({"value":1.23456,"precision":3.9,"more":0})", "1.23"},
        {Precise, R"({"value":null,"precision":3})", "nan"},
        {Precise, R"({"value":1,"precision":1e300})", "1"},
        {Precise, "1", nullptr, "Unable to parse double precision"},
        {Precise, R"({"precision":1})", nullptr, "Unable to find double precision value"},
        {Precise, R"({"value":"1","precision":1})", nullptr, "Invalid double precision value"},
        {Precise, R"({"value":1})", nullptr, "Unable to find double precision precision"},
        {Precise, R"({"value":1,"precision":null})", nullptr, "Invalid double precision precision"},
        {MetricType::None, "1", nullptr},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(metricTypeName(row.type).toStdString() + ' ' + row.json);
        MetricStore store;
        MetricDefinition metric = declare("m", row.type);
        metric.valuePath = "x.m";
        store.addDefinition(metric);
        store.setValue("m", "old");
        const QJsonObject data = object(QByteArray("{\"x\":{\"m\":") + row.json + "}}");
        QString error;
        EXPECT_EQ(store.readValues(data, &error), row.text != nullptr);
        EXPECT_EQ(error.toStdString(), row.error);
        EXPECT_EQ(store.hasValue("m"), row.text != nullptr);
        if (row.text) {
            EXPECT_TRUE(isValueOfType(row.type, store.value("m")));
            EXPECT_EQ(metricValueText(row.type, store.value("m")).toStdString(), row.text);
        }
    }
}

TEST(MetricReader, comparesVersionsAndWalksPaths)
{
    const struct {
        const char* data;
        quint8 version;
        const char* error; ///< null if the metric gets its absent value
    } rows[] = {
        {R"({"version":1})", 3, nullptr},
        {"{}", 1, nullptr},
        {R"({"version":4})", 1, nullptr},
        {R"({"version":1,"data":{}})", 2, nullptr},
        {R"({"version":3,"data":{"version":1}})", 2, nullptr},
        {R"({"version":3,"data":{}})", 2, "Unable to access value a.b"},
        {R"({"version":1,"data":{"version":3}})", 2, "Unable to access value a.b"},
        {R"({"version":3.9})", 3, "Unable to access value a.b"},
        {"{}", 0, "Unable to access value a.b"},
        {R"({"a":1})", 0, "Unable to access value a.b"},
        {R"({"a.b":1})", 0, "Unable to access value a.b"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.data);
        MetricStore store;
        store.addDefinition(declare("a.b", Double, row.version));
        QString error;
        EXPECT_EQ(store.readJson(row.data, &error), !row.error);
        EXPECT_EQ(error.toStdString(), row.error ? row.error : "");
        if (!row.error) {
            EXPECT_TRUE(std::isnan(store.value("a.b").toDouble()));
        }
    }
    // What stands beside the data is no value of it.
    for (const char* path : {"m", "version"}) {
        MetricStore store;
        store.addDefinition(declare(path, Integer));
        QString error;
        EXPECT_FALSE(store.readJson(R"({"data":{},"m":2,"version":3})", &error)) << path;
        EXPECT_EQ(error, QString("Unable to access value %1").arg(path));
    }
    MetricStore store;
    store.addDefinitions({declare("a", Integer), declare("b", Integer), declare("c", Integer)});
    QString error;
    EXPECT_FALSE(store.readValues(object(R"({"a":1,"c":3})"), &error));
    EXPECT_TRUE(store.hasValue("a") && !store.hasValue("c")) << "kept as far as it came";
    EXPECT_FALSE(store.readValues(object(R"({"a":1,"b":2,"c":3})"), &error)) << "a stale message";
    EXPECT_FALSE(store.readValues(object("{}"), nullptr));
    EXPECT_TRUE(store.readValues(object(R"({"a":1,"b":2,"c":3})"), nullptr));
}

TEST(MetricReader, refusesMalformedText)
{
    QStringList malformed =
        QString(R"~(|x|nul|1|""|null|true|NaN|{|}|[|[1|["a|[}|{]|{"a":[}|{"a":1}}|[]]|{} {}|{},|)~"
                R"~({}x|[1,]|[,1]|[1 2]|{"a":1,}|{,"a":1}|{"a":1 "b":2}|{"a"}|{"a":}|{"a" 1}|)~"
                R"~({a:1}|{'a':1}|{1:1}|{null:1}|{[]:1}|{"a":01}|{"a":-}|{"a":-01}|{"a":+1}|)~"
                R"~({"a":1e}|{"a":1e+}|{"a":0x1}|{"a":1e999}|{"a":-1e999}|{"a":Infinity}|)~"
                R"~({"a":1 2}|{"a":True}|{"a":nulll}|{"a":"\u12"}|{"a":"\u12G4"}|{"a":"b}|)~"
                R"~({"a":"\"}|{"a":'b'}|/**/{}|{/**/}|//{})~")
            .split('|');
    malformed += {QString("[").repeated(100000), QString("{\"a\":").repeated(100000)};
    // Numbers that begin or end with a point, control characters and unknown escapes are let
    // through.
    const char* const wellFormed[] = {
        " \t\r\n{ } \n",
        "\xEF\xBB\xBF{}",
        R"({"":{"":[]},"a":1,"a":2})",
        R"({"a":-0.0e-9,"b":1E+30,"c":123456789012345678901,"d":[[],{},null,true,false]})",
        R"({"a":"\u0000\ud800\"\/\b\\"})",
        "{\"a\":1.,\"b\":.5,\"c\":\"\t\\x\"}",
    };
    MetricStore store;
    store.addDefinition(declare("m", Integer, 3));
    QString error;
    for (const QString& text : malformed) {
        EXPECT_FALSE(store.readJson(text, &error)) << text.left(20).toStdString();
        EXPECT_EQ(error, "malformed JSON input") << text.left(20).toStdString();
    }
    EXPECT_FALSE(store.readJson("x", nullptr));
    EXPECT_FALSE(store.readJson("[]", &error));
    EXPECT_EQ(error, "Expected JSON data to be an object");
    for (const char* text : wellFormed)
        EXPECT_TRUE(store.readJson(QString::fromUtf8(text), &error)) << text << error.toStdString();
    EXPECT_EQ(error, QString()) << "a new reading forgets the old message";
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
    EXPECT_TRUE(store.readJson(R"({"metricData":{},"m":1})", &error))
        << "nothing declared or missing";
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
    ASSERT_TRUE(store.readFile(file, &error)) << error.toStdString();
    EXPECT_EQ(store.value("m").toString().toStdString(), "\xC3\xA9");
    EXPECT_FALSE(file.isOpen());
    MetricStore ofReport;
    QFile report(QStringLiteral(TEST_SOURCE_DIR "/render/golden/sample.json"));
    EXPECT_TRUE(ofReport.readFile(report, &error)) << error.toStdString();
    EXPECT_EQ(ofReport.value("version"), QVariant(3));
    QFile missing(folder.filePath("none"));
    EXPECT_FALSE(store.readFile(missing, &error));
    EXPECT_EQ(error, "Unable to open file " + folder.filePath("none"));
}

namespace {

template <typename Item>
Item pick(std::mt19937& random, const QList<Item>& items)
{
    return items[int(random() % unsigned(items.size()))];
}

QVariant randomValue(std::mt19937& random, MetricType type)
{
    using Limits = std::numeric_limits<double>;
    constexpr int least = std::numeric_limits<int>::min();
    constexpr int most = std::numeric_limits<int>::max();
    static const QVariantList values[] = {
        {"", "plain", QString::fromUtf8("\xE2\x82\xAC\xF0\x9F\x98\x80"),
         QString(QChar(0)) + "\"\\\n</script>", "null"},
        {false, true},
        {0, -1, 1 << 30, least, most},
        {0.0, -1.5, 0.1, 1e300, Limits::denorm_min(), Limits::max(), Limits::quiet_NaN()},
    };
    const auto valueOf = [&](MetricType simple) { return pick(random, values[int(simple) - 1]); };
    if (type != Precise)
        return valueOf(type);
    return fromDoubleWithPrecision({valueOf(Double).toDouble(), valueOf(Integer).toInt()});
}

/// A store whose paths don't get into each other's way, in part other than the ids.
MetricStore randomStore(std::mt19937& random)
{
    const QList<MetricType> types{String, Bool, Integer, Double, Precise};
    const QStringList units{QString(), "", "B/s"};
    MetricStore store;
    store.addDefinition(declare("version", Integer, 1));
    store.setValue("version", 3);
    for (unsigned i = random() % 12; i > 0; --i) {
        MetricDefinition metric = declare("g%1.m%2", pick(random, types), quint8(random() % 4));
        metric.id = metric.id.arg(random() % 3).arg(i);
        const QString path = random() % 2 ? metric.id : "p..%1.x.y%2";
        metric.valuePath = path.contains('%') ? path.arg(random() % 2).arg(i) : path;
        metric.units = pick(random, units);
        metric.displayName = pick(random, units);
        store.addDefinition(metric);
        store.setValue(metric.id, randomValue(random, metric.type));
    }
    return store;
}

} // namespace

TEST(MetricReader, readsBackWhatWasWritten)
{
    std::mt19937 random(20161117);
    for (int round = 0; round < 500; ++round) {
        const MetricStore store = randomStore(random);
        const QJsonObject file{{"metricData", store.toMetricDataObject()},
                               {"data", store.toDataObject()}};
        const QString text = QString::fromUtf8(QJsonDocument(file).toJson());
        MetricStore again;
        QString error;
        ASSERT_TRUE(again.readJson(text, &error)) << error.toStdString() << text.toStdString();
        ASSERT_EQ(again.toMetricDataObject(), store.toMetricDataObject()) << text.toStdString();
        ASSERT_EQ(again.toDataObject(), store.toDataObject()) << text.toStdString();
        const QStringList ids = store.toMetricDataObject().keys();
        ASSERT_EQ(again.metricRecords(ids), store.metricRecords(ids)) << text.toStdString();
        for (const QString& id : ids) {
            ASSERT_EQ(again.definition(id), store.definition(id));
            ASSERT_TRUE(isValueOfType(store.definition(id).type, again.value(id)));
        }
    }
}

TEST(MetricRecords, haveGlobalNames)
{
    MetricStore store;
    const std::pair<MetricDefinition, QVariant> values[] = {
        {declare("applicationDetails.nodes.plain", Integer), 4},
        {declare("applicationDetails.exeName", String), "a.out"},
        {declare("energy.total.plain", Double), 1234567.0},
        {declare("other.plain", Bool), true},
        {declare("precise", Precise), fromDoubleWithPrecision({1.23456, 3})},
    };
    for (const auto& [metric, value] : values) {
        store.addDefinition(metric);
        store.setValue(metric.id, value);
    }
    store.addDefinition(declare("unset", Integer));
    MetricDefinition precise = store.definition("precise");
    precise.valuePath = "applicationDetails.p";
    precise.units = "s";
    precise.displayName = "P";
    store.addDefinition(precise);
    const QList<MetricRecord> expected = {
        {"com.corvane.application.exeName", "a.out", "string", {}, {}},
        {"com.corvane.application.nodes", "4", "int32", {}, {}},
        {"com.corvane.energy.total", "1.23457e+06", "double", {}, {}},
        {"com.corvane.other.plain", "1", "uint8", {}, {}},
        {"com.corvane.application.p", "1.23", "double", "s", "P"},
    };
    EXPECT_EQ(store.metricRecords({"precise", "other.plain", "unset", "unknown",
                                   "energy.total.plain", "applicationDetails.nodes.plain",
                                   "applicationDetails.exeName", "precise"}),
              expected);
    EXPECT_EQ(store.metricRecords({"Precise"}), QList<MetricRecord>());
    store.clearDefinitions();
    const MetricRecord undeclared{"com.corvane.", {}, {}, {}, {}};
    EXPECT_EQ(store.metricRecords({"other.plain"}), QList<MetricRecord>{undeclared});
}
