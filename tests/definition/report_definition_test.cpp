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
    const auto hasEmptyPart = [error](const QString& culprit) {
        if (!error || !culprit.split('.').contains(QString()))
            return false;
        *error = culprit + " contains empty parts.";
        return true;
    };
    if (hasEmptyPart(id))
        return {};
    const QStringList parts = id.split('.');
    for (const ReportMetric& metric : metrics) {
        if (hasEmptyPart(metric.id))
            return {};
        const QStringList others = metric.id.split('.');
        const int shared = std::min(parts.size(), others.size());
        if (parts.mid(0, shared) == others.mid(0, shared))
            return metric.id;
    }
    return {};
}

} // namespace

TEST(ReportDefinition, makesKeys)
{
    const ReportIdScheme custom;
    const ReportIdScheme own = ReportIdScheme::builtin();
    const std::pair<QString, const char*> rows[] = {
        {qualifiedMetricId(metricOf("a.b"), custom), "custom.report.metric.a.b"},
        {qualifiedMetricId(metricOf("a.b", 2), custom), "a.b"},
        {qualifiedMetricId(metricOf("a.b"), own), "a.b"},
        {qualifiedMetricId(metricOf(""), custom), "custom.report.metric."},
        {qualifiedSubsectionId("%1", custom), "custom.report.subsection.%1"},
        {qualifiedSubsectionId("s", own), "s"},
        {qualifiedSummaryId("cpu", custom), "custom.report.summary.cpu"},
        {summaryAdviceKey("cpu", custom), "custom.report.summary.cpu.advice"},
        {summaryAdviceKey("cpu", own), "cpu.advice"},
        {subsectionAdviceKey("mem%2", custom, 2), "custom.report.subsection.mem%2.advice2"},
        {subsectionAdviceKey("mem", own, 1000), "mem.advice1000"},
    };
    for (const auto& [key, expected] : rows)
        EXPECT_EQ(key.toStdString(), expected);
}

TEST(ReportDefinition, handsOutDisplayOrderAndKeepsTheFirstOfAnId)
{
    constexpr int least = std::numeric_limits<int>::min();
    constexpr int greatest = std::numeric_limits<int>::max();
    ReportDefinition definition;
    definition.setSummary({"h",
                           "f",
                           {ordered<SummaryEntry>("a", 0), ordered<SummaryEntry>("b", -1),
                            ordered<SummaryEntry>("c", greatest)}});
    definition.appendSummaryEntry(ordered<SummaryEntry>("d", 0));
    definition.appendSummaryEntry(ordered<SummaryEntry>("e", least));
    EXPECT_EQ(idsOf(definition.summary().entries), "ebadc");
    QList<Subsection> many;
    for (int i = 0; i < 100; ++i)
        many.append(ordered<Subsection>(i % 2 == 0 ? "later" : "first", 1 - i % 2));
    for (int i = 0; i < many.size(); ++i)
        many[i].maxAdviceStrings = i;
    definition.setSubsections(many);
    many = definition.subsections();
    for (int i = 0; i < 100; ++i)
        EXPECT_EQ(many.at(i).maxAdviceStrings, i < 50 ? 2 * i + 1 : 2 * (i - 50));
    definition.setSubsections({ordered<Subsection>("x", 2), ordered<Subsection>("y", 1),
                               ordered<Subsection>("x", 0), ordered<Subsection>("z", 1)});
    EXPECT_EQ(idsOf(definition.subsections()), "xyzx");
    EXPECT_EQ(definition.subsection("x").order, 2);

    Subsection rows = ordered<Subsection>("r", 9);
    for (const int order : {3, -1, 3, 0}) {
        SubsectionEntry entry;
        entry.order = order;
        entry.group = QString::number(rows.entries.size());
        rows.entries.append(entry);
    }
    definition.appendSubsection(rows);
    const QList<SubsectionEntry> shown = definition.subsections().last().entries;
    QString groups;
    for (const SubsectionEntry& entry : shown)
        groups += entry.group;
    EXPECT_EQ(groups, "1302");
    EXPECT_EQ(definition.subsection("r").entries.first().group, "0") << "stored as added";
}

TEST(ReportDefinition, givesDefaultRecordsForUnknownIds)
{
    const ReportDefinition definition({metricOf("a", 1), metricOf("a", 2)}, "n",
                                      QUrl("http://a.example/%25%20x"));
    EXPECT_EQ(definition.metric("a").corvaneMetricVersion, 1);
    EXPECT_EQ(definition.metricIds(), QSet<QString>{"a"});
    EXPECT_TRUE(definition.idScheme().metricPrefix.isEmpty());
    EXPECT_FALSE(definition.idScheme().reservesCorvaneIds);
    const ReportMetric metric = definition.metric("A");
    EXPECT_TRUE(metric.id.isEmpty() && metric.displayName.isEmpty() && !metric.colour.isValid());
    EXPECT_EQ(int(metric.type), 4);
    EXPECT_EQ(metric.corvaneMetricVersion, 0);
    const Subsection subsection = definition.subsection("a");
    EXPECT_TRUE(subsection.id.isEmpty() && subsection.entries.isEmpty());
    EXPECT_EQ(subsection.maxAdviceStrings, 1);
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
