#include "api/test_report.h"

#include <QJsonDocument>
#include <QJsonObject>

#include <cstdlib>
#include <cstring>
#include <stdexcept>

using namespace vantrel;
using namespace vantrel::report;

TEST(ReportOutput, tellsWhatIsMissing)
{
    const auto failureOf = [](Report& report) {
        char place = 'x';
        char* output = &place;
        EXPECT_EQ(report.generateAndWrite(&output, ReportOutputKind::Json), 7);
        EXPECT_EQ(output, nullptr);
        return report.text();
    };
    Report unset;
    EXPECT_EQ(failureOf(unset), "No metric value has been set for 'cpu'");

    const std::string list = "No metric values have been set for the following metrics:\n        ";
    Report withoutDetails;
    withoutDetails.fillMetrics();
    EXPECT_EQ(failureOf(withoutDetails),
              list + "applicationDetails.exeName\n        applicationDetails.processes.plain");

    // The id of a bound may be skipped, but not its key.
    Report withBound(
        QByteArray(definition)
            .replace("</reportMetrics>",
                     "<reportMetric id='overview.bound1.long' displayName='%'/></reportMetrics>"));
    withBound.fill();
    EXPECT_EQ(failureOf(withBound), list + "custom.report.metric.overview.bound1.long");

    Report report;
    ReportMetric strange = report.metric("cpu");
    strange.id = "%5d%%";
    report.setMetrics({strange});
    EXPECT_EQ(report.generate(), 7);
    EXPECT_EQ(report.text(), "No metric value has been set for '    0%'");
}

TEST(ReportOutput, namesThePlaceOfBadPlaceholders)
{
    const char heading[] = "<heading>h</heading>";
    const char late[] = "<entry id='late' reportMetric='a.b' order='1'/>";
    const char entry[] = "<entry reportMetric='a.b'/>";
    const struct {
        const char* before;
        const char* after;
        const char* key; ///< as the message names it; null if there is none
        const char* place = "";
    } rows[] = {
        {heading, "<heading>h</heading><footer>${*}</footer>", "*", " (in summary footer)"},
        {late, "<entry id='late' reportMetric='a.b'><description>${*no}</description></entry>",
         "*no", " (in summary entry a.b)"},
        {entry, "<text>${}</text><entry reportMetric='a.b'/>", "",
         " (in description of subsection mem)"},
        {entry,
         "<entry reportMetric='a.b'><description>${q}</description></entry><entry "
         "reportMetric='a.b'><description>no placeholder</description></entry>",
         "q"},
        {entry,
         "<entry reportMetric='a.b'><description>${q}</description></entry><entry "
         "reportMetric='a.b'><description>${*cpu}</description></entry>",
         nullptr},
        {heading, "<heading>${cpu} ${%3d%s%%} ${y}</heading>", "  0%"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.after);
        Report report(QByteArray(definition).replace(row.before, row.after));
        report.fill();
        EXPECT_EQ(report.generate(), row.key ? 103 : 0);
        const QString begin = "Invalid placeholder \"${%1}\" in report:\n        R ()\n";
        const QString text = QString::fromStdString(report.text());
        EXPECT_TRUE(text.startsWith(row.key ? begin.arg(row.key) : "")) << report.text();
        EXPECT_TRUE(text.endsWith(row.place)) << report.text();
        EXPECT_EQ(text.isEmpty(), !row.key);
    }
}

TEST(ReportOutput, stopsChoosingAtAMetricWithoutANumber)
{
    Report report;
    EXPECT_EQ(report.computeDominantMetric(), "");
    EXPECT_EQ(report.text(), "metric \"cpu\" can't be converted to double");
    report.set("cpu", 1.0);
    EXPECT_EQ(report.computeDominantMetric(), "");
    EXPECT_EQ(report.text(), "metric \"a.b\" can't be converted to double");
    Report other(QByteArray(definition).replace("'known' order='2'", "'text' order='0'"));
    other.fill();
    EXPECT_EQ(other.generate(), 7);
    EXPECT_EQ(other.text(), "metric \"text\" can't be converted to double");
}

TEST(ReportOutput, keepsTheBoundThatTheCallerSet)
{
    const char* const parts[] = {"long", "short", "type", "subsectionId", "subsectionHeading"};
    for (const char* missing : parts) {
        Report incomplete;
        incomplete.fill(1, 2, 3);
        for (const char* part : parts) {
            if (part != missing)
                incomplete.set(QByteArray("overview.bound1.") + part, "mine");
        }
        EXPECT_EQ(incomplete.generate(), 0) << missing;
        EXPECT_EQ(incomplete.value("overview.bound1.long"), "K-bound") << missing;
    }
    Report report;
    report.fill(1, 2, 3);
    EXPECT_EQ(report.setDominantMetricFromCaller("cpu"), 0);
    EXPECT_EQ(report.set("overview.bound1.long", "mine"), 0);
    EXPECT_EQ(report.generate(), 0);
    EXPECT_EQ(report.value("overview.bound1.long"), "mine");
    EXPECT_EQ(report.value("overview.bound1.subsectionHeading"), "Memory");

    Report empty;
    empty.fill();
    empty.setSummary({});
    EXPECT_EQ(empty.generate(), 7);
    EXPECT_EQ(empty.text(), "No metric values have been set for the following metrics:\n"
                            "        overview.bound1.long\n        overview.bound1.short\n"
                            "        overview.bound1.subsectionHeading\n"
                            "        overview.bound1.subsectionId\n        overview.bound1.type");
}

TEST(ReportOutput, writesTheBytesOfTheDocument)
{
    Report report;
    report.fill();
    EXPECT_EQ(report.generateAndWrite(nullptr, ReportOutputKind::Json), 13);
    EXPECT_EQ(report.text(), "Pointer to receive the report output buffer is NULL");
    Report other;
    other.fill();
    QByteArray bytes;
    char* output = nullptr;
    EXPECT_EQ(other.generateReport(&bytes, ReportOutputKind::Json), 0);
    EXPECT_EQ(other.generateAndWrite(&output, ReportOutputKind::Json), 0);
    EXPECT_EQ(std::memcmp(output, bytes.constData(), std::size_t(bytes.size())), 0);
    std::free(output);
    const QJsonObject data = QJsonDocument::fromJson(bytes).object();
    EXPECT_EQ(data["data"]["applicationDetails"]["exeName"].toString(), "exe");
    EXPECT_EQ(data["data"]["overview"]["bound1"]["type"].toString(), "known");
}

TEST(CustomReportText, tellsExceptionsAndNotices)
{
    const auto messageOf = [](const auto& exception) {
        Report report;
        try {
            throw exception;
        } catch (...) {
            EXPECT_EQ(report.handleException("some_call"), 1);
        }
        return report.text();
    };
    EXPECT_EQ(messageOf(std::runtime_error("%s went wrong")),
              "EXCEPTION! context: some_call | fatal error with found message: %s went wrong");
    EXPECT_EQ(messageOf(1), "EXCEPTION! context: some_call | unknown error");

    Report report;
    EXPECT_FALSE(report.hasNotices());
    EXPECT_EQ(report.noticeText(), "");
    report.addNotice("b", "old");
    report.addNotice("a", "%1");
    report.addNotice("b", "new");
    EXPECT_TRUE(report.hasNotices());
    EXPECT_EQ(report.noticeText(), "%1\nnew\n");
}
