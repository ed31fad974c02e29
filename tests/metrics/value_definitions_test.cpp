#include "definition/builtin_metrics.h"
#include "definition/definition_text.h"
#include "metrics/metric_data.h"
#include "metrics/value_definitions.h"

#include <gtest/gtest.h>

using namespace vantrel;
using namespace vantrel::report;

namespace {

QStringList linesOf(const QList<ReportMetric>& metrics)
{
    QStringList lines;
    for (const ReportMetric& metric : metrics)
        lines += lineOf(metric, metric.corvaneMetricVersion);
    return lines;
}

} // namespace

TEST(BuiltinMetrics, areThreeListsWhateverTheVersion)
{
    const QStringList overview = linesOf(builtinOverviewMetrics(3));
    const QStringList header = linesOf(builtinHeaderMetrics(3));
    const QStringList values = linesOf(builtinValueMetrics(3));
    EXPECT_EQ(overview.size(), 17);
    EXPECT_EQ(header,
              QStringList({"applicationDetails.processes.plain|Integer|1|Processes|processes",
                           "applicationDetails.exeName|String|1|Executable|-"}));
    EXPECT_EQ(values.size(), 18);
    // The rows that are easily taken for slips.
    for (const char* line :
         {"version|Integer|1|Version|-", "overview.bound2.subsectionId|String|3|-|-"})
        EXPECT_TRUE(overview.contains(line)) << line;
    for (const char* line : {"applicationDetails.ompNumThreads|String|1|Number of OMP threads|-",
                             "applicationDetails.nodes.plain|Integer|1|Resources|nodes",
                             "applicationDetails.gpusPerNode.plain|DoubleWithPrecision|1|GPUs|GPUs",
                             "applicationDetails.hasGpu|Bool|1|-|-"})
        EXPECT_TRUE(values.contains(line)) << line;
    for (const int version : {-1, 0, 1, 99}) {
        EXPECT_EQ(linesOf(builtinOverviewMetrics(version)), overview);
        EXPECT_EQ(linesOf(builtinHeaderMetrics(version)), header);
        EXPECT_EQ(linesOf(builtinValueMetrics(version)), values);
    }
}

TEST(BuiltinMetrics, areToldFromOthers)
{
    const std::tuple<const char*, bool, bool> rows[] = {
        {"version", true, false},
        {"", false, false},
        {"cpu.memPercent", false, false},
        {"applicationDetails.exeName", true, false},
        {"applicationDetails.processes.plain", true, true},
        {"applicationDetails.hostGpuMemory.plain", true, true},
        {"applicationDetails.gpusPerNode.plain", true, true},
        {"energy.accTotal.plain", false, true},
    };
    for (const auto& [id, isBuiltin, isPlain] : rows) {
        EXPECT_EQ(isBuiltinMetric(id), isBuiltin) << id;
        EXPECT_EQ(isPlainMetric(id), isPlain) << id;
    }
}

TEST(ValueDefinitions, standInOrderAndTheBuiltinOnesWin)
{
    const Loaded loaded = load(
        document("<reportMetric id='b.c' displayName='B' units='%'/><reportMetric id='report.name' "
                 "displayName='N' type='boolean' corvaneMetricVersion='2'/>",
                 "<entry id='first' reportMetric='a' order='-1'/>",
                 "<subsection id='s1' heading='S' order='2'/>"
                 "<subsection id='s2' heading='S' order='1' maxAdviceStrings='2'/>"
                 "<subsection id='s0' heading='S' maxAdviceStrings='0'/>"
                 "<subsection id='s-1' heading='S' maxAdviceStrings='-1'/>"));
    ASSERT_TRUE(loaded.definition);
    const QList<MetricDefinition> list = reportValueDefinitions(*loaded.definition);
    QStringList lines;
    for (const MetricDefinition& declared : list) {
        EXPECT_EQ(declared.valuePath, declared.id);
        lines += lineOf(declared, declared.version);
    }
    const QStringList own{"custom.report.metric.a|Double|0|A|-",
                          "custom.report.metric.b.c|Double|0|B|%",
                          "report.name|Bool|2|N|-",
                          "custom.report.summary.first.advice|String|0|Advice|-",
                          "custom.report.summary.e.advice|String|0|Advice|-",
                          "custom.report.subsection.s2.advice1|String|0|Advice 1|-",
                          "custom.report.subsection.s2.advice2|String|0|Advice 2|-",
                          "custom.report.subsection.s1.advice1|String|0|Advice 1|-"};
    const QStringList builtin =
        linesOf(builtinOverviewMetrics(3) + builtinHeaderMetrics(3) + builtinValueMetrics(3));
    EXPECT_EQ(lines.join("\n").toStdString(), (own + builtin).join("\n").toStdString());
    MetricStore store;
    store.addDefinitions(list);
    EXPECT_EQ(store.definition("report.name").type, MetricType::String);
    EXPECT_TRUE(store.definition("report.name").displayName.isNull());
}
