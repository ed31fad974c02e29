#include "api/test_report.h"

#include <QJsonDocument>
#include <QTextCodec>

#include <cmath>

using namespace vantrel;
using namespace vantrel::report;

TEST(CustomReport, setsValuesOfCallers)
{
    // The message, or the key under which the value is found, comes last.
    const std::tuple<const char*, QVariant, int, QString> rows[] = {
        {"a.b", std::nan(""), 0, "custom.report.metric.a.b"},
        {"custom.report.metric.text", "\xE2\x82\xAC", 0, "custom.report.metric.text"},
        {"text", 1.0, 10, "expected type \"String\" for metric \"custom.report.metric.text\""},
        {"known", 1.0, 4, "unknown metric: \"custom.report.metric.known\""},
    };
    for (const auto& [id, value, code, text] : rows) {
        Report report;
        EXPECT_EQ(report.told(report.set(id, value)),
                  std::to_string(code) + ' ' + (code == 0 ? "" : text.toStdString()));
        EXPECT_EQ(report.metricValue(text).toString(), code == 0 ? value.toString() : QString());
    }
}

TEST(CustomReport, takesApplicationDetailsAsFullKeys)
{
    const char* const details[] = {
        CORVANE_APPLICATION_DETAIL_NOTES,         CORVANE_APPLICATION_DETAIL_EXE_PATH,
        CORVANE_APPLICATION_DETAIL_TIME,          CORVANE_APPLICATION_DETAIL_START_DATE,
        CORVANE_APPLICATION_DETAIL_HOST_NAME,     CORVANE_APPLICATION_DETAIL_NUM_NODES,
        CORVANE_APPLICATION_DETAIL_NUM_PROCESSES, CORVANE_APPLICATION_DETAIL_COMMAND_LINE,
        CORVANE_APPLICATION_DETAIL_EXE_NAME};
    QStringList keys;
    for (const QString id : details) {
        keys += id;
        Report report;
        ReportMetric metric;
        metric.id = id;
        report.appendMetric(metric);
        const QVariant value = id.endsWith(".plain") ? QVariant(5) : QVariant("x");
        EXPECT_EQ(report.told(report.set(id.toUtf8(), value)), "0 ");
        EXPECT_EQ(report.metricValue(id), value);
    }
    keys.replaceInStrings("applicationDetails.", "");
    EXPECT_EQ(keys.join(' '), "notes exePath time.plain startDate hostname nodes.plain "
                              "processes.plain commandLine exeName");
}

TEST(CustomReport, declaresUnknownMetricsIfTold)
{
    Report report;
    EXPECT_EQ(report.setMetricValue("new.one", 7, DeclareUnknown), 0);
    EXPECT_EQ(report.setMetricValue("new.one", 8, RejectUnknown), 0);
    report.fill();
    EXPECT_EQ(report.generate(), 0);
    EXPECT_EQ(QJsonDocument::fromJson(report.bytes)["data"]["new"]["one"].toInt(), 8);
    EXPECT_EQ(report.told(report.setMetricValue("new.one", 1.0, DeclareUnknown)),
              "10 expected type \"Integer\" for metric \"new.one\"");
}

TEST(CustomReport, beginsWithItsIdentityAndDefaults)
{
    QTextCodec::setCodecForLocale(QTextCodec::codecForName("ISO-8859-1"));
    const Report report;
    EXPECT_EQ(QTextCodec::codecForLocale()->name(), "UTF-8");
    const std::pair<const char*, QVariant> rows[] = {
        {"report.name", "R"},
        {"report.version.api", 1},
        {"report.version.software", "7.0.6"},
        {"report.src.definition", "R ()\n"},
        {"report.src.values", "corvane:/custom-report-api"},
        {"version", 3},
        {"applicationDetails.time.plain", 0},
        {"overview.advice", QString()},
        {"overview.bound2.long", QString()},
        {"custom.report.summary.late.advice", QString()},
        {"custom.report.subsection.mem.advice3", QString()},
    };
    for (const auto& [id, value] : rows) {
        EXPECT_EQ(report.metricValue(id), value) << id;
        EXPECT_EQ(report.metricValue(id).userType(), value.userType()) << id;
    }
}

TEST(CustomReport, storesBounds)
{
    const std::string cpu = "CPU-bound|CPU|custom.report.metric.cpu|mem|Memory";
    using Set = int (CustomReport::*)(const QString& id);
    const std::tuple<Set, const char*, std::string, std::string> rows[] = {
        {&CustomReport::setDominantMetric, "cpu", cpu, "||||"},
        {&CustomReport::setSecondaryBound, "known", cpu, "K-bound|K|known||"},
        {&CustomReport::setSecondaryBound, "cpu", cpu, cpu},
        {&CustomReport::setSecondaryBound, "", cpu, "||||"},
        {&CustomReport::setDominantMetric, "a.b", "||custom.report.metric.a.b||", "||||"},
    };
    Report report;
    ReportMetric nameless = report.metric("a.b");
    nameless.displayName.clear();
    report.setMetrics({report.metric("cpu"), report.metric("known"), nameless});
    for (const auto& [set, id, first, second] : rows) {
        EXPECT_EQ(report.told((report.*set)(id)), "0 ");
        EXPECT_EQ(report.bound("bound1") + report.bound("bound2"), first + second);
    }
    EXPECT_FALSE(report.value("overview.bound2.long").isNull()) << "cleared, not as it began";
    EXPECT_EQ(report.told(report.setDominantMetricFromCaller("a\xFF")),
              "8 invalid UTF-8 sequence found in metric name");
}

TEST(CustomReport, choosesTheFirstGreatestOfTheSummary)
{
    const std::tuple<double, double, double, const char*> rows[] = {
        {5, 5, 5, "cpu"},
        {1, 5, 5, "a.b"},
        {std::nan(""), 9, 9, "cpu"},
        {1, std::nan(""), 2, "known"},
    };
    for (const auto& [cpu, ab, known, best] : rows) {
        Report report;
        report.fill(cpu, ab, known);
        EXPECT_EQ(report.computeDominantMetric(), best);
    }
}

TEST(ExportedCalls, areLatchedButForBadStringValues)
{
    vantrel_handle report(definition);
    EXPECT_EQ(vantrel_set_value_double(&report, "no", 1), 4);
    EXPECT_EQ(vantrel_set_value_string(&report, "x", nullptr), 11);
    EXPECT_STREQ(report.errorMessage(), "null metric value found");
    EXPECT_EQ(vantrel_set_value_string(&report, nullptr, "\xE2\x82"), 8);
    EXPECT_STREQ(report.errorMessage(), "invalid UTF-8 sequence found in metric value");
    EXPECT_EQ(vantrel_set_value_string(&report, "x", "y"), 12);
}

TEST(CustomReport, tellsWhyItsDefinitionIsRefused)
{
    const QByteArray nameless = QByteArray(definition).replace("name='R'", "name=''");
    const QByteArray misled = QByteArray(definition)
                                  .replace("<entry reportMetric='a.b'/>",
                                           "<entry reportMetric='a.b' requires='%1$s%%%d'/>");
    const std::pair<const char*, const char*> rows[] = {
        {nullptr, "xml layout buffer pointer is null"},
        {nameless.constData(), "internal report definition pointer is null"},
        {misled.constData(),
         "Error in  at line 10 column 47: There is no metric with id=\"%0\" in this report"},
    };
    for (const auto& [text, message] : rows)
        EXPECT_STREQ(CustomReport(text).errorMessage(), message);
}
