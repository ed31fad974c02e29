#include "definition/builtin_metrics.h"
#include "definition/report_definition.h"

#include <gtest/gtest.h>

#include <limits>

using namespace vantrel;
using namespace vantrel::report;

TEST(ReportDefinition, handsOutDisplayOrderAndKeepsTheFirstOfAnId)
{
    const auto ordered = [](auto record, const char* id, int order) {
        record.id = id;
        record.order = order;
        return record;
    };
    const auto idsOf = [](const auto& records) {
        QString ids;
        for (const auto& record : records)
            ids += record.id;
        return ids;
    };
    constexpr int least = std::numeric_limits<int>::min();
    constexpr int greatest = std::numeric_limits<int>::max();
    ReportDefinition definition;
    const std::pair<const char*, int> entries[] = {
        {"a", 0}, {"b", -1}, {"c", greatest}, {"d", 0}, {"e", least}};
    for (const auto& [id, order] : entries)
        definition.appendSummaryEntry(ordered(SummaryEntry(), id, order));
    EXPECT_EQ(idsOf(definition.summary().entries), "ebadc");
    definition.setSubsections({ordered(Subsection(), "x", 2), ordered(Subsection(), "y", 1),
                               ordered(Subsection(), "x", 0), ordered(Subsection(), "z", 1)});
    EXPECT_EQ(idsOf(definition.subsections()), "xyzx");
    EXPECT_EQ(definition.subsection("x").order, 2);

    Subsection rows = ordered(Subsection(), "r", 9);
    for (int i = 0; i < 100; ++i) {
        rows.entries.append(SubsectionEntry());
        rows.entries.last().order = 1 - i % 2;
        rows.entries.last().maxBarValue = i;
    }
    definition.appendSubsection(rows);
    const QList<SubsectionEntry> shown = definition.subsections().last().entries;
    for (int i = 0; i < 100; ++i)
        EXPECT_EQ(shown.at(i).maxBarValue, i < 50 ? 2 * i + 1 : 2 * (i - 50));
}

TEST(ReportDefinition, startsWithGivenMetricsAndTheSchemeOfOurOwnDefinitions)
{
    const ReportMetric metric = builtinHeaderMetrics(3).first();
    const ReportDefinition definition({metric}, "n", QUrl("u:%25%20x"));
    EXPECT_EQ(definition.metricIds(), QSet<QString>{metric.id});
    EXPECT_FALSE(definition.idScheme().reservesCorvaneIds);
    EXPECT_EQ(definition.metric("a").id + definition.subsection("a").id, "");
    EXPECT_EQ(definition.describeSources(1).toStdString(), " n (u:%25 x)\n");
}

TEST(ReportDefinition, findsTheFirstCollision)
{
    // The new id, the others, the collision and whose empty part is told if a message is wanted.
    const std::tuple<const char*, const char*, const char*, const char*> rows[] = {
        {"a", "a", "a", ""},
        {"a", "b a.b a.c a", "a.b", ""},
        {"a.b.c", "b.c a.b a a.b.c", "a.b", ""},
        {"a.b.c", "a.b.c.d.e a", "a.b.c.d.e", ""},
        {"a.b", "a.bc A.b b.a a.a.b ab", "", ""},
        {"b..c", "a", "", "b..c"},
        {".b", "a", "", ".b"},
        {"b.", "a", "", "b."},
        {"b", "a x..y z.", "", "x..y"},
        {"b", "x..y b", "b", "x..y"},
        {"b", "b..c b", "b..c", "b..c"},
        {"", "a", "", ""},
    };
    for (const auto& [id, others, collision, culprit] : rows) {
        SCOPED_TRACE(std::string(id) + " in " + others);
        ReportDefinition definition;
        ReportMetric metric;
        for (const QString& other : QString(others).split(' ', Qt::SkipEmptyParts)) {
            metric.id = other;
            definition.appendMetric(metric);
        }
        QString error;
        const bool isEmptyPart = *culprit || !*id;
        EXPECT_EQ(definition.findMetricIdCollision(id, &error), isEmptyPart ? "" : collision);
        EXPECT_EQ(error, isEmptyPart ? QString(culprit) + " contains empty parts." : "");
        EXPECT_EQ(definition.findMetricIdCollision(id, nullptr), collision);
    }
}
