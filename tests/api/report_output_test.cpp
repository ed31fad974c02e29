#include "api/test_report.h"

#include <cstdlib>
#include <cstring>
#include <stdexcept>

using namespace vantrel;
using namespace vantrel::report;

TEST(ReportOutput, tellsWhatIsMissing)
{
    const auto expectMissing = [](Report& report, const char* ids) {
        EXPECT_EQ(report.told(report.generate()),
                  "7 No metric values have been set for the following metrics:\n        " +
                      QString(ids).replace(" ", "\n        ").toStdString());
    };
    Report report;
    char* output = report.bytes.data();
    EXPECT_EQ(report.told(report.generateAndWrite(&output, ReportOutputKind::Json)),
              "7 No metric value has been set for 'cpu'");
    EXPECT_EQ(output, nullptr);
    report.fillMetrics();
    expectMissing(report, "applicationDetails.exeName applicationDetails.processes.plain");
    ReportMetric strange = report.metric("cpu");
    strange.id = "%5d%%";
    report.setMetrics({strange});
    EXPECT_EQ(report.told(report.generate()), "7 No metric value has been set for '    0%'");
    // A metric with the id of a bound may be without a value.
    strange.id = "overview.bound1.long";
    Report other;
    other.fill();
    other.appendMetric(strange);
    other.setSummary({});
    expectMissing(other, "overview.bound1.long overview.bound1.short "
                         "overview.bound1.subsectionHeading overview.bound1.subsectionId "
                         "overview.bound1.type");
}

TEST(ReportOutput, namesThePlaceOfBadPlaceholders)
{
    const char heading[] = "<heading>h</heading>";
    const char late[] = "<entry id='late' reportMetric='a.b' order='1'/>";
    const char entry[] = "<entry reportMetric='a.b'/>";
    const QString described = "<entry reportMetric='a.b'><description>%1</description></entry>";
    // What is replaced, by what, the key that the message names or null, and the place in it.
    const std::tuple<const char*, QString, const char*, const char*> rows[] = {
        {heading, "<heading>h</heading><footer>${*}</footer>", "*", " (in summary footer)"},
        {late, "<entry id='late' reportMetric='a.b'><description>${*no}</description></entry>",
         "*no", " (in summary entry a.b)"},
        {entry, "<text>${}</text><entry reportMetric='a.b'/>", "",
         " (in description of subsection mem)"},
        {entry, described.arg("${q}") + described.arg("no placeholder"), "q", ""},
        {entry, described.arg("${q}") + described.arg("${*cpu}"), nullptr, ""},
    };
    for (const auto& [before, after, key, where] : rows) {
        Report report(QByteArray(definition).replace(before, after.toUtf8()));
        report.fill();
        const QString text = QString::fromStdString(report.told(report.generate()));
        const QString begin = "103 Invalid placeholder \"${%1}\" in report:\n        R ()\n";
        EXPECT_TRUE(text.startsWith(key ? begin.arg(key) : "0 ")) << text.toStdString();
        EXPECT_TRUE(text.endsWith(where)) << text.toStdString();
        EXPECT_EQ(text.size() < 3, !key) << text.toStdString();
    }
}

TEST(ReportOutput, stopsChoosingAtAMetricWithoutANumber)
{
    Report report;
    EXPECT_EQ(report.computeDominantMetric(), "");
    EXPECT_STREQ(report.errorMessage(), "metric \"cpu\" can't be converted to double");
    report.set("cpu", 1.0);
    EXPECT_EQ(report.computeDominantMetric(), "");
    EXPECT_STREQ(report.errorMessage(), "metric \"a.b\" can't be converted to double");
    Report other(QByteArray(definition).replace("'known' order='2'", "'text' order='0'"));
    other.fill();
    EXPECT_EQ(other.told(other.generate()), "7 metric \"text\" can't be converted to double");
}

TEST(ReportOutput, keepsTheBoundThatTheCallerSet)
{
    const char* const parts[] = {"long", "short", "type", "subsectionId", "subsectionHeading", ""};
    for (const char* missing : parts) {
        Report report;
        report.fill(1, 2, 3);
        for (const char* part : parts) {
            if (part != missing && *part)
                report.set(QByteArray("overview.bound1.") + part, "mine");
        }
        EXPECT_EQ(report.generate(), 0) << missing;
        EXPECT_EQ(report.bound("bound1"),
                  *missing ? "K-bound|K|known||" : "mine|mine|mine|mine|mine");
    }
}

TEST(ReportOutput, writesTheBytesOfTheDocument)
{
    Report report;
    report.fill();
    char* output = nullptr;
    EXPECT_EQ(report.generate() + report.generateAndWrite(&output, ReportOutputKind::Json), 0);
    EXPECT_EQ(std::memcmp(output, report.bytes.constData(), std::size_t(report.bytes.size())), 0);
    std::free(output);
    EXPECT_EQ(report.told(report.generateAndWrite(nullptr, ReportOutputKind::Json)),
              "13 Pointer to receive the report output buffer is NULL");
}

TEST(CustomReportText, tellsExceptionsAndNotices)
{
    Report report;
    const auto messageOf = [&](const auto& exception) {
        try {
            throw exception;
        } catch (...) {
            return report.told(report.handleException("some_call"));
        }
    };
    EXPECT_EQ(messageOf(std::runtime_error("%s went wrong")),
              "1 EXCEPTION! context: some_call | fatal error with found message: %s went wrong");
    EXPECT_EQ(messageOf(1), "1 EXCEPTION! context: some_call | unknown error");
    EXPECT_FALSE(report.hasNotices());
    for (const char* text : {"b old", "a %1", "b new"})
        report.addNotice(QString(text).left(1), text + 2);
    EXPECT_TRUE(report.hasNotices());
    EXPECT_EQ(report.noticeText(), "%1\nnew\n");
}
