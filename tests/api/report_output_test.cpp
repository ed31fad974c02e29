#include "api/test_report.h"

#include <QJsonDocument>
#include <QJsonObject>

#include <cstdlib>
#include <cstring>
#include <stdexcept>

using namespace vantrel;
using namespace vantrel::report;

namespace {

/// How the message on a bad placeholder begins.
std::string invalidPlaceholder(const char* key)
{
    return std::string("Invalid placeholder \"${") + key + "}\" in report:\n        R ()\n";
}

} // namespace

TEST(ReportOutput, tellsWhatIsMissing)
{
    const QString list = "No metric values have been set for the following metrics:\n        ";
    const char exempt[] =
        "<reportMetric id='overview.bound1.long' displayName='%'/></reportMetrics>";
    const struct {
        const char* name;
        const char* before;
        const char* after;
        bool isFilled;
        QString message;
    } rows[] = {
        {"first of all metrics", "", "", false, "No metric value has been set for 'cpu'"},
        {"a bound's id may be skipped, but not its key", "</reportMetrics>", exempt, true,
         list + "custom.report.metric.overview.bound1.long"},
        {"two details", "", "", true,
         list + "applicationDetails.exeName\n        applicationDetails.processes.plain"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        const bool isChanged = *row.before != '\0';
        Report report(isChanged ? QByteArray(definition).replace(row.before, row.after)
                                : QByteArray(definition));
        ASSERT_FALSE(report.hasError()) << report.text();
        if (row.isFilled && isChanged) {
            report.fill();
        } else if (row.isFilled) {
            for (const char* id : {"custom.report.metric.cpu", "custom.report.metric.a.b", "known"})
                report.setMetricValue(id, 1.0, RejectUnknown);
            report.setMetricValue("custom.report.metric.text", "", RejectUnknown);
        }
        char place = 'x';
        char* output = &place;
        EXPECT_EQ(report.generateAndWrite(&output, ReportOutputKind::Json), 7);
        EXPECT_EQ(output, nullptr);
        EXPECT_EQ(report.text(), row.message.toStdString());
    }
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
        const char* name;
        const char* before;
        const char* after;
        std::string message;
        const char* place = "";
    } rows[] = {
        {"heading", heading, "<heading>${cpu} ${ x } ${y}</heading>", invalidPlaceholder("x")},
        {"footer", heading, "<heading>h</heading><footer>${*}</footer>", invalidPlaceholder("*"),
         " (in summary footer)"},
        {"summary entry", late,
         "<entry id='late' reportMetric='a.b'><description>${*no}</description></entry>",
         invalidPlaceholder("*no"), " (in summary entry a.b)"},
        {"subsection", entry, "<text>${}</text><entry reportMetric='a.b'/>", invalidPlaceholder(""),
         " (in description of subsection mem)"},
        {"last entry", entry,
         "<entry reportMetric='a.b'><description>${q}</description></entry><entry "
         "reportMetric='a.b'><description>no placeholder</description></entry>",
         invalidPlaceholder("q")},
        {"percent", heading, "<heading>${%3d%s%%}</heading>", invalidPlaceholder("  0%")},
        {"forgotten", entry,
         "<entry reportMetric='a.b'><description>${q}</description></entry><entry "
         "reportMetric='a.b'><description>${*cpu}</description></entry>",
         ""},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        Report report(QByteArray(definition).replace(row.before, row.after));
        report.fill();
        EXPECT_EQ(report.generate(), row.message.empty() ? 0 : 103);
        EXPECT_EQ(report.text().substr(0, row.message.size()), row.message);
        EXPECT_TRUE(QByteArray::fromStdString(report.text()).endsWith(row.place));
        EXPECT_EQ(report.text().empty(), row.message.empty());
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
    other.setSummary({});
    EXPECT_EQ(other.computeDominantMetric(), "");
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
    Report report;
    try {
        throw std::runtime_error("%s went wrong");
    } catch (...) {
        EXPECT_EQ(report.handleException("some_call"), 1);
    }
    EXPECT_EQ(report.text(), "EXCEPTION! context: some_call | fatal error with found message: %s "
                             "went wrong");
    try {
        throw 1;
    } catch (...) {
        EXPECT_EQ(report.handleException("some_call"), 1);
    }
    EXPECT_EQ(report.text(), "EXCEPTION! context: some_call | unknown error");

    EXPECT_FALSE(report.hasNotices());
    EXPECT_EQ(report.noticeText(), "");
    report.addNotice("b", "old");
    report.addNotice("a", "%1");
    report.addNotice("b", "new");
    EXPECT_TRUE(report.hasNotices());
    EXPECT_EQ(report.noticeText(), "%1\nnew\n");
}

TEST(CustomReportText, isTestedForUtf8)
{
    const std::pair<const char*, bool> rows[] = {
        {nullptr, true},
        {"", true},
        {"a\xC3\xA9\xF0\x9F\x98\x80", true},
        {"\xEF\xBB\xBF", true},
        {"\xEF\xBF\xBE", true},
        {"\x80", false},
        {"\xC3", false},
        {"\xF0\x9F\x98", false},
        {"\xC0\x80", false},
        {"\xED\xA0\x80", false},
        {"\xF4\x90\x80\x80", false},
        {"\xFF", false},
    };
    for (const auto& [text, isValid] : rows)
        EXPECT_EQ(CustomReport::isValidUtf8(text), isValid) << testing::PrintToString(text);
}
