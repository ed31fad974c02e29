#include "definition/builtin_metrics.h"
#include "definition/definition_text.h"
#include "metrics/metric_data.h"
#include "metrics/value_definitions.h"

#include <gtest/gtest.h>

using namespace vantrel;
using namespace vantrel::report;

TEST(BuiltinMetrics, areToldFromOthers)
{
    EXPECT_TRUE(isBuiltinMetric("version") && isBuiltinMetric("applicationDetails.exeName"));
    EXPECT_FALSE(isBuiltinMetric("cpu.memPercent") || isBuiltinMetric("energy.accTotal.plain"));
    for (const char* id : {"energy.accTotal.plain", "applicationDetails.processes.plain",
                           "applicationDetails.gpusPerNode.plain"})
        EXPECT_TRUE(isPlainMetric(id)) << id;
    EXPECT_FALSE(isPlainMetric("applicationDetails.exeName"));
}

TEST(ValueDefinitions, standInOrderAndTheBuiltinOnesWin)
{
    const Loaded loaded = load(
        document("<reportMetric id='b.c' displayName='B' units='%'/><reportMetric id='report.name' "
                 "displayName='N' type='boolean' corvaneMetricVersion='2'/>",
                 "<entry id='first' reportMetric='a' order='-1'/>",
                 "<subsection id='s1' heading='S' order='2'/>"
                 "<subsection id='s%2' heading='S' order='1' maxAdviceStrings='2'/>"
                 "<subsection id='s0' heading='S' maxAdviceStrings='0'/>"
                 "<subsection id='s-1' heading='S' maxAdviceStrings='-1'/>"));
    ASSERT_TRUE(loaded.definition);
    const QList<MetricDefinition> list = reportValueDefinitions(*loaded.definition);
    QStringList lines;
    for (const MetricDefinition& declared : list.mid(0, list.size() - 37)) {
        EXPECT_EQ(declared.valuePath, declared.id);
        lines += lineOf(declared, declared.version);
    }
    EXPECT_EQ(lines.join("\n"), "custom.report.metric.a|Double|0|A|-\n"
                                "custom.report.metric.b.c|Double|0|B|%\n"
                                "report.name|Bool|2|N|-\n"
                                "custom.report.summary.first.advice|String|0|Advice|-\n"
                                "custom.report.summary.e.advice|String|0|Advice|-\n"
                                "custom.report.subsection.s%2.advice1|String|0|Advice 1|-\n"
                                "custom.report.subsection.s%2.advice2|String|0|Advice 2|-\n"
                                "custom.report.subsection.s1.advice1|String|0|Advice 1|-");
    MetricStore store;
    store.addDefinitions(list);
    EXPECT_EQ(store.definition("report.name").type, MetricType::String);
    EXPECT_TRUE(store.definition("report.name").displayName.isNull());
}
