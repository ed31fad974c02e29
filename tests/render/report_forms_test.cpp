// The four forms of one report. The text, CSV and JSON forms are held against files in golden/;
// VANTREL_ACCEPT_GOLDENS=1 in the environment takes the new output over.
#include "api/custom_report.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>

#include "qt_printing.h"
#include "warnings.h"

#include <gtest/gtest.h>

#include <limits>

using namespace vantrel;

namespace {

const QString golden = QStringLiteral(TEST_SOURCE_DIR "/render/golden/");

QByteArray readFile(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// The JSON with each record, which holds no other, on a line.
QByteArray recordsInLines(const QJsonObject& object)
{
    const QRegularExpression record(R"~([[{](?:"(?:[^"\\]|\\.)*"|[^]"[{}])*[]}])~");
    const QString json = QJsonDocument(object).toJson();
    QString text = json;
    for (auto matches = record.globalMatch(json); matches.hasNext();) {
        const QString one = matches.next().captured();
        text.replace(one, QString(one).replace(QRegularExpression("\\n *"), " "));
    }
    return text.toUtf8();
}

class ReportForms : public testing::Test {
protected:
    ReportForms() : report(readFile(golden + "sample.xml").constData())
    {
        const double infinity = std::numeric_limits<double>::infinity();
        const std::pair<const char*, double> values[] = {
            {"cpu.share", 51.25}, {"net.share", 0.04}, {"disk.share", 8},
            {"idle", 99.96},      {"rate", 1.5e6},     {"memory", 3.5 * 1024 * 1024},
            {"count", 1234},      {"raw", -0.5},       {"broken", infinity}};
        for (const auto& [id, value] : values)
            EXPECT_EQ(report.setValueFromCaller(id, value), VANTREL_OK) << report.errorMessage();
        report.setStringFromCaller(CORVANE_APPLICATION_DETAIL_EXE_NAME, "s\xC3\xA4mple & co");
        report.setStringFromCaller("custom.report.metric.fault", "no <fault>");
        report.setValueFromCaller(CORVANE_APPLICATION_DETAIL_NUM_PROCESSES, 4);
        report.setValueFromCaller(CORVANE_APPLICATION_DETAIL_NUM_NODES, 1);
        report.setValueFromCaller(CORVANE_APPLICATION_DETAIL_TIME, 90);
        report.setStringFromCaller(CORVANE_APPLICATION_DETAIL_EXE_PATH, "/opt/sample");
        report.setSectionAdviceFromCaller("cpu", "Use <b>\xE2\x89\xA4 4</b> cores");
        report.setSummaryAdviceFromCaller("cpu", "Na\xC3\xAFve");
        report.setDominantMetricAdvice("Think &amp; m\xC3\xA9nage");
    }

    QByteArray generate(ReportOutputKind kind)
    {
        QByteArray bytes;
        EXPECT_EQ(report.generateReport(&bytes, kind), VANTREL_OK) << report.errorMessage();
        return bytes;
    }

    void compare(const QByteArray& bytes, const char* name)
    {
        QFile file(golden + QLatin1String(name));
        if (qEnvironmentVariableIsSet("VANTREL_ACCEPT_GOLDENS")) {
            ASSERT_TRUE(file.open(QIODevice::WriteOnly));
            file.write(bytes);
            file.close();
        }
        EXPECT_EQ(bytes, readFile(file.fileName()));
    }

    CustomReport report;
};

TEST_F(ReportForms, TextCsvAndJsonAreAsAccepted)
{
    compare(generate(ReportOutputKind::Text), "sample.txt");
    compare(generate(ReportOutputKind::Csv), "sample.csv");
    // The images of the logos would fill the file, and the header's rows are a resource.
    QJsonObject document = QJsonDocument::fromJson(generate(ReportOutputKind::Json)).object();
    EXPECT_FALSE(document.take("brandingData").toObject().isEmpty());
    EXPECT_FALSE(document.take("headerData").toArray().isEmpty());
    compare(recordsInLines(document), "sample.json");
}

TEST_F(ReportForms, PageIsTheSameEachTime)
{
    const QByteArray page = generate(ReportOutputKind::DynamicHtml);
    EXPECT_EQ(page, generate(ReportOutputKind::DynamicHtml));
    EXPECT_TRUE(page.startsWith("<!DOCTYPE html>\n<html lang=\"en\">\n<head>\n<meta charset=") &&
                page.endsWith("</html>"));
    EXPECT_EQ(page.count("</html>") + page.count("<title>Vantrel</title>"), 2);
}

TEST_F(ReportForms, KindOutsideTheTableGivesAWarningAndNothingElse)
{
    const QStringList warnings =
        warningsOf([this] { EXPECT_EQ(generate(ReportOutputKind(9)), QByteArray()); });
    EXPECT_EQ(warnings.join('|'), "Error generating static report: Invalid format \"\"");
}

} // namespace
