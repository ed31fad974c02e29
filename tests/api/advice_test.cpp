// Advice below the exported calls: slots, numbers and keys.
#include "api/test_report.h"

using namespace vantrel;
using namespace vantrel::report;

namespace {

QStringList slotsOf(const Report& report)
{
    QStringList texts;
    for (const char* n : {"1", "2", "3"})
        texts += report.value("custom.report.subsection.mem.advice" + QByteArray(n));
    return texts;
}

} // namespace

TEST(Advice, fillsTheSlotsOfASubsection)
{
    Report report;
    EXPECT_EQ(report.adviceSlotCount("mem"), 3);
    EXPECT_EQ(report.setSubsectionAdvice("mem", 3, "third"), 0);
    EXPECT_EQ(slotsOf(report), QStringList({"", "", "third"}));
    EXPECT_EQ(report.setSubsectionAdvices("mem", {"a", "b"}), 0);
    EXPECT_EQ(slotsOf(report), QStringList({"a", "b", ""}));
    EXPECT_EQ(report.setSubsectionAdvices("mem", {"1", "2", "3", "4"}), 0);
    EXPECT_EQ(slotsOf(report), QStringList({"1", "2", "3"}));
    EXPECT_EQ(report.setSummaryEntryAdvice("late", "entry"), 0);
    EXPECT_EQ(report.value("custom.report.summary.late.advice"), "entry");
    EXPECT_FALSE(report.hasError());
}

TEST(Advice, tellsWhatIsWrong)
{
    Report report;
    EXPECT_EQ(report.setSubsectionAdvice("no%s", 0, "x"), 5);
    EXPECT_EQ(report.text(), "subsection with ID \"no%s\" was not found");
    EXPECT_EQ(report.setSubsectionAdvice("mem", 0, "x"), 16);
    EXPECT_EQ(report.text(), "bad advice string number (0) for subsection with ID \"mem\".Advice "
                             "string indexing starts at '1'.");
    EXPECT_EQ(report.setSubsectionAdvice("mem", 4, "x"), 16);
    EXPECT_EQ(report.text(), "bad advice string number (4) for subsection with ID \"mem\".Expected "
                             "number in range 1..3");
    EXPECT_EQ(slotsOf(report), QStringList({"", "", ""}));
    EXPECT_EQ(report.setSubsectionAdvices("no", {}), 5);
    EXPECT_EQ(report.adviceSlotCount("no"), -1);
    EXPECT_EQ(report.text(), "subsection with ID \"no\" was not found");
}

TEST(Advice, isRefusedForIdsOutsideAscii)
{
    Report report(QByteArray(definition).replace("'mem'", "'m\xC3\xA9m'"));
    ASSERT_FALSE(report.hasError()) << report.text();
    EXPECT_EQ(report.setSubsectionAdvice(QString::fromUtf8("m\xC3\xA9m"), 1, "x"), 4);
    EXPECT_EQ(report.text(), "unknown metric: \"custom.report.subsection.m\xC3\x83\xC2\xA9m"
                             ".advice1\"");
}
