#include "definition/report_definition.h"

#include <gtest/gtest.h>

#include <limits>

using namespace vantrel;
using namespace vantrel::report;

namespace {

template <typename Record>
Record ordered(const char* id, int order)
{
    Record record;
    record.id = id;
    record.order = order;
    return record;
}

template <typename Record>
QString idsOf(const QList<Record>& records)
{
    QString ids;
    for (const Record& record : records)
        ids += record.id;
    return ids;
}

ReportMetric metricOf(const QString& id, int version = 0)
{
    ReportMetric metric;
    metric.id = id;
    metric.corvaneMetricVersion = version;
    return metric;
}

} // namespace

TEST(ReportDefinition, handsOutDisplayOrderAndKeepsTheFirstOfAnId)
{
    constexpr int least = std::numeric_limits<int>::min();
    constexpr int greatest = std::numeric_limits<int>::max();
    ReportDefinition definition;
    const std::pair<const char*, int> entries[] = {
        {"a", 0}, {"b", -1}, {"c", greatest}, {"d", 0}, {"e", least}};
    for (const auto& [id, order] : entries)
        definition.appendSummaryEntry(ordered<SummaryEntry>(id, order));
    EXPECT_EQ(idsOf(definition.summary().entries), "ebadc");
    definition.setSubsections({ordered<Subsection>("x", 2), ordered<Subsection>("y", 1),
                               ordered<Subsection>("x", 0), ordered<Subsection>("z", 1)});
    EXPECT_EQ(idsOf(definition.subsections()), "xyzx");
    EXPECT_EQ(definition.subsection("x").order, 2);

    Subsection rows = ordered<Subsection>("r", 9);
    for (int i = 0; i < 100; ++i) {
        rows.entries.append(SubsectionEntry());
        rows.entries.last().order = 1 - i % 2;
        rows.entries.last().maxBarValue = i;
    }
    definition.appendSubsection(rows);
    const QList<SubsectionEntry> shown = definition.subsections().last().entries;
    for (int i = 0; i < 100; ++i)
        EXPECT_EQ(shown.at(i).maxBarValue, i < 50 ? 2 * i + 1 : 2 * (i - 50));
    EXPECT_EQ(definition.subsection("r").entries.first().maxBarValue, 0) << "stored as added";
}

TEST(ReportDefinition, givesDefaultRecordsForUnknownIds)
{
    const ReportDefinition definition({metricOf("a", 1), metricOf("a", 2)}, "n",
                                      QUrl("http://a.example/%25%20x"));
    EXPECT_EQ(definition.metric("a").corvaneMetricVersion, 1);
    EXPECT_EQ(definition.metricIds(), QSet<QString>{"a"});
    EXPECT_TRUE(definition.idScheme().metricPrefix.isEmpty());
    EXPECT_TRUE(definition.metric("A").id.isEmpty() && definition.subsection("a").id.isEmpty());
    EXPECT_EQ(definition.describeSources(8).toStdString(), "        n (http://a.example/%25 x)\n");
    EXPECT_EQ(ReportDefinition().describeSources(0), " ()\n");
}

TEST(ReportDefinition, findsTheFirstCollision)
{
    // The new id, the others, the collision and whose empty part is told if a message is wanted.
    const std::tuple<const char*, const char*, const char*, const char*> rows[] = {
        {"a", "", "", ""},
        {"a", "a", "a", ""},
        {"a", "b a.b a.c a", "a.b", ""},
        {"a.b.c", "b.c a.b a a.b.c", "a.b", ""},
        {"a.b.c", "a.b.c.d.e a", "a.b.c.d.e", ""},
        {"a.b.c", "a a.b.c.d", "a", ""},
        {"a.b", "a a.b a", "a", ""},
        {"a.b", "a.bc A.b b.a a.a.b ab", "", ""},
        {"b..c", "a", "", "b..c"},
        {".b", "a", "", ".b"},
        {"b.", "a", "", "b."},
        {"b", "a x..y z.", "", "x..y"},
        {"b", "a b x..y", "b", ""},
        {"b", "x..y b", "b", "x..y"},
        {"b", "b..c b", "b..c", "b..c"},
        {"", "a", "", ""},
    };
    for (const auto& [id, others, collision, culprit] : rows) {
        SCOPED_TRACE(std::string(id) + " in " + others);
        ReportDefinition definition;
        for (const QString& other : QString(others).split(' ', Qt::SkipEmptyParts))
            definition.appendMetric(metricOf(other));
        QString error;
        const bool isEmptyPart = *culprit || !*id;
        EXPECT_EQ(definition.findMetricIdCollision(id, &error), isEmptyPart ? "" : collision);
        EXPECT_EQ(error, isEmptyPart ? QString(culprit) + " contains empty parts." : "");
        EXPECT_EQ(definition.findMetricIdCollision(id, nullptr), collision);
    }
}
