#include "definition/report_definition.h"

#include <gtest/gtest.h>

#include <limits>
#include <random>

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

/// Compares the new id with one after the other.
QString findCollisionPairwise(const QList<ReportMetric>& metrics, const QString& id, QString* error)
{
    for (int i = -1; i < metrics.size(); ++i) {
        const QString other = i < 0 ? id : metrics.at(i).id;
        if (error && QString('.' + other + '.').contains("..")) {
            *error = other + " contains empty parts.";
            return {};
        }
        const bool isAbove = QString(id + '.').startsWith(other + '.');
        if (i >= 0 && (isAbove || QString(other + '.').startsWith(id + '.')))
            return other;
    }
    return {};
}

} // namespace

TEST(ReportDefinition, makesKeys)
{
    const ReportIdScheme custom;
    const ReportIdScheme own = ReportIdScheme::builtin();
    const QStringList keys({
        qualifiedMetricId(metricOf("a.b"), custom),
        qualifiedMetricId(metricOf("a.b", 2), custom),
        qualifiedMetricId(metricOf("a.b"), own),
        summaryAdviceKey("cpu", custom),
        summaryAdviceKey("cpu", own),
        subsectionAdviceKey("mem%2", custom, 2),
        subsectionAdviceKey("mem", own, 1000),
    });
    EXPECT_EQ(keys.join(' ').toStdString(),
              "custom.report.metric.a.b a.b a.b custom.report.summary.cpu.advice cpu.advice "
              "custom.report.subsection.mem%2.advice2 mem.advice1000");
}

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

TEST(ReportDefinition, findsTheCollisionsThatAPairwiseWalkFinds)
{
    std::mt19937 random(20160401);
    const char* const parts[] = {"a", "b", "c", "ab", "A", "d", "e", ""};
    const auto makeId = [&](unsigned partCount) {
        QStringList list;
        for (unsigned length = 1 + random() % 4; length > 0; --length)
            list += parts[random() % partCount];
        return list.join('.');
    };
    int collisions = 0;
    int messages = 0;
    for (int round = 0; round < 2000; ++round) {
        const unsigned partCount = round % 2 == 0 ? 7 : 8;
        QList<ReportMetric> metrics;
        for (unsigned count = random() % 12; count > 0; --count)
            metrics.append(metricOf(makeId(partCount)));
        ReportDefinition definition;
        definition.setMetrics(metrics);
        const QString id = makeId(partCount);
        SCOPED_TRACE(idsOf(metrics).toStdString() + " and " + id.toStdString());
        QString expectedError;
        QString error;
        const QString expected = findCollisionPairwise(metrics, id, &expectedError);
        EXPECT_EQ(definition.findMetricIdCollision(id, &error), expected);
        EXPECT_EQ(error, expectedError);
        EXPECT_EQ(definition.findMetricIdCollision(id, nullptr),
                  findCollisionPairwise(metrics, id, nullptr));
        collisions += !expected.isEmpty();
        messages += !error.isEmpty();
    }
    EXPECT_GT(collisions, 200);
    EXPECT_GT(messages, 200);
}
