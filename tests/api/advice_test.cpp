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
    EXPECT_EQ(report.setSubsectionAdvices("mem", {"a", "b"}), 0);
    EXPECT_EQ(slotsOf(report), "a|b|");
    EXPECT_EQ(report.setSubsectionAdvices("mem", {"1", "2", "3", "4"}), 0);
    EXPECT_EQ(slotsOf(report), "1|2|3");
    EXPECT_EQ(report.setSummaryEntryAdvice("late", "entry"), 0);
    EXPECT_EQ(report.value("custom.report.summary.late.advice"), "entry");
    EXPECT_FALSE(report.hasError());
}

TEST(Advice, tellsWhatIsWrong)
{
    const QString accented = QString::fromUtf8("m\xC3\xA9m");
    Report report(
        QByteArray(definition)
            .replace("<subsections>", "<subsections><subsection id='m\xC3\xA9m' heading='M'/>"));
    ASSERT_FALSE(report.hasError()) << report.errorMessage();
    const std::string bad = "16 bad advice string number (";
    EXPECT_EQ(report.told(report.setSubsectionAdvice("no%s", 0, "x")),
              "5 subsection with ID \"no%s\" was not found");
    EXPECT_EQ(report.told(report.setSubsectionAdvice("mem", 0, "x")),
              bad + "0) for subsection with ID \"mem\".Advice string indexing starts at '1'.");
    EXPECT_EQ(report.told(report.setSubsectionAdvice("mem", 4, "x")),
              bad + "4) for subsection with ID \"mem\".Expected number in range 1..3");
    EXPECT_EQ(slotsOf(report), "||");
    EXPECT_EQ(report.told(report.setSubsectionAdvices("no", {})),
              "5 subsection with ID \"no\" was not found");
    EXPECT_EQ(report.adviceSlotCount("no"), -1);
    EXPECT_EQ(report.told(report.setSubsectionAdvice(accented, 1, "x")),
              "4 unknown metric: \"custom.report.subsection.m\xC3\x83\xC2\xA9m.advice1\"")
        << "an id outside ASCII";
}
