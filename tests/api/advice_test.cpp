// Advice below the exported calls: slots, numbers and keys.
#include "api/test_report.h"

using namespace vantrel;

namespace {

std::string slotsOf(const Report& report)
{
    QStringList texts;
    for (const char* n : {"1", "2", "3"})
        texts += report.value("custom.report.subsection.mem.advice" + QByteArray(n));
    return texts.join('|').toStdString();
}

} // namespace

TEST(Advice, fillsTheSlotsOfASubsection)
{
    Report report;
    EXPECT_EQ(report.adviceSlotCount("mem"), 3);
    EXPECT_EQ(report.setSubsectionAdvice("mem", 3, "third"), 0);
    EXPECT_EQ(slotsOf(report), "||third");
    EXPECT_EQ(report.setSubsectionAdvices("mem", {"1", "2", "3", "4"}), 0);
    EXPECT_EQ(slotsOf(report), "1|2|3");
    EXPECT_EQ(report.setSubsectionAdvices("mem", {"a", "b"}), 0);
    EXPECT_EQ(slotsOf(report), "a|b|");
    EXPECT_EQ(report.setSummaryEntryAdvice("late", "entry"), 0);
    EXPECT_EQ(report.value("custom.report.summary.late.advice"), "entry");
}

TEST(Advice, tellsWhatIsWrong)
{
    const QString accented = QString::fromUtf8("m\xC3\xA9m");
    const std::string bad = "16 bad advice string number (";
    const std::tuple<QString, int, std::string> rows[] = {
        {"no%s", 0, "5 subsection with ID \"no%s\" was not found"},
        {"mem", 0, bad + "0) for subsection with ID \"mem\".Advice string indexing starts at '1'."},
        {"mem", 4, bad + "4) for subsection with ID \"mem\".Expected number in range 1..3"},
        // An id outside ASCII.
        {accented, 1, "4 unknown metric: \"custom.report.subsection.m\xC3\x83\xC2\xA9m.advice1\""},
    };
    Report report(
        QByteArray(definition)
            .replace("<subsections>", "<subsections><subsection id='m\xC3\xA9m' heading='M'/>"));
    for (const auto& [id, number, message] : rows)
        EXPECT_EQ(report.told(report.setSubsectionAdvice(id, number, "x")), message);
    EXPECT_EQ(slotsOf(report), "||");
    EXPECT_EQ(report.told(report.setSubsectionAdvices("no", {})),
              "5 subsection with ID \"no\" was not found");
}
