#include "metrics/builtin_metrics.h"
#include "metrics/value_definitions.h"

#include <gtest/gtest.h>

using namespace vantrel;
using namespace vantrel::report;

namespace {

/// One line for a metric: id, type, version, name and units, of which "-" is a null text.
template <typename Metric>
QString lineOf(const Metric& metric, int version)
{
    const auto word = [](const QString& text) { return text.isNull() ? QString("-") : text; };
    return QString("%1|%2|%3|%4|%5")
        .arg(metric.id, metricTypeName(metric.type), QString::number(version),
             word(metric.displayName), word(metric.units));
}

QStringList linesOf(const QList<ReportMetric>& metrics)
{
    QStringList lines;
    for (const ReportMetric& metric : metrics)
        lines += lineOf(metric, metric.corvaneMetricVersion);
    return lines;
}

const QStringList overviewLines{"version|Integer|1|Version|-",
                                "overview.bound2.type|String|1|-|-",
                                "overview.bound2.short|String|1|-|-",
                                "overview.bound2.long|String|1|-|-",
                                "overview.bound1.type|String|1|-|-",
                                "overview.bound1.short|String|1|-|-",
                                "overview.bound1.long|String|1|-|-",
                                "overview.advice|String|1|-|-",
                                "overview.bound2.subsectionHeading|String|3|-|-",
                                "overview.bound2.subsectionId|String|3|-|-",
                                "overview.bound1.subsectionHeading|String|3|-|-",
                                "overview.bound1.subsectionId|String|3|-|-",
                                "report.src.values|String|3|-|-",
                                "report.src.definition|String|3|-|-",
                                "report.version.software|String|3|-|-",
                                "report.version.api|Integer|3|-|-",
                                "report.name|String|3|-|-"};

const QStringList headerLines{"applicationDetails.processes.plain|Integer|1|Processes|processes",
                              "applicationDetails.exeName|String|1|Executable|-"};

const QStringList valueLines{
    "applicationDetails.hasEnergyMetricsEnabled|Bool|1|-|-",
    "applicationDetails.hasAcceleratorMetricsEnabled|Bool|1|-|-",
    "applicationDetails.hasGpu|Bool|1|-|-",
    "applicationDetails.isOpenMp|Bool|1|-|-",
    "applicationDetails.inputFile|String|1|Input file|-",
    "applicationDetails.notes|String|1|Notes|-",
    "applicationDetails.exePath|String|1|Full path|-",
    "applicationDetails.time.plain|Integer|1|Total time|seconds",
    "applicationDetails.startDate|String|1|Start time|-",
    "applicationDetails.hostname|String|1|Machine|-",
    "applicationDetails.ompNumThreads|String|1|Number of OMP threads|-",
    "applicationDetails.hostGpuMemory.plain|DoubleWithPrecision|1|GPU Memory|B",
    "applicationDetails.hostMemory.plain|DoubleWithPrecision|1|Memory|B",
    "applicationDetails.gpusPerNode.plain|DoubleWithPrecision|1|GPUs|GPUs",
    "applicationDetails.logicalCoresPerNode|Integer|1|Logical cores per node|cores/node",
    "applicationDetails.physicalCoresPerNode|Integer|1|Physical cores per node|cores/node",
    "applicationDetails.nodes.plain|Integer|1|Resources|nodes",
    "applicationDetails.commandLine|String|1|Command|-"};

} // namespace

TEST(BuiltinMetrics, areThreeListsWhateverTheVersion)
{
    for (const int version : {-1, 0, 1, 3, 99}) {
        EXPECT_EQ(linesOf(builtinOverviewMetrics(version)), overviewLines);
        EXPECT_EQ(linesOf(builtinHeaderMetrics(version)), headerLines);
        EXPECT_EQ(linesOf(builtinValueMetrics(version)), valueLines);
    }
    const ReportMetric metric = builtinValueMetrics(3).first();
    EXPECT_FALSE(metric.colour.isValid());
    EXPECT_EQ(metric.source + metric.breakdownSubsection + metric.metricRef, QString());
}

TEST(BuiltinMetrics, areToldFromOthers)
{
    const struct {
        const char* id;
        bool isBuiltin;
        bool isPlain;
    } rows[] = {
        {"version", true, false},
        {"Version", false, false},
        {"", false, false},
        {"cpu.memPercent", false, false},
        {"overview.cpu.percent", false, false},
        {"overview.advice", true, false},
        {"applicationDetails.exeName", true, false},
        {"applicationDetails.processes.plain", true, true},
        {"applicationDetails.nodes.plain", true, true},
        {"applicationDetails.time.plain", true, true},
        {"applicationDetails.hostGpuMemory.plain", true, true},
        {"applicationDetails.hostMemory.plain", true, true},
        {"applicationDetails.gpusPerNode.plain", true, true},
        {"energy.total.plain", false, true},
        {"energy.cpuTotal.plain", false, true},
        {"energy.accTotal.plain", false, true},
        {"energy.trapped", false, false},
        {"other.plain", false, false},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(isBuiltinMetric(row.id), row.isBuiltin) << row.id;
        EXPECT_EQ(isPlainMetric(row.id), row.isPlain) << row.id;
    }
}

TEST(ValueDefinitions, standInOrderAndTheBuiltinOnesWin)
{
    ReportDefinition definition;
    ReportMetric metric;
    metric.id = "b.c";
    metric.displayName = "B";
    metric.units = "%";
    definition.appendMetric(metric);
    metric.id = "report.name";
    metric.corvaneMetricVersion = 2;
    metric.type = MetricType::Bool;
    metric.units = QString();
    definition.appendMetric(metric);
    SummaryEntry entry;
    entry.id = "later";
    definition.appendSummaryEntry(entry);
    entry.id = "first";
    entry.order = -1;
    definition.appendSummaryEntry(entry);
    Subsection subsection;
    for (const int slots : {2, 0, -1}) {
        subsection.id = QString("s%1").arg(slots);
        subsection.order = -slots;
        subsection.maxAdviceStrings = slots;
        definition.appendSubsection(subsection);
    }
    subsection.id = "last";
    subsection.order = 5;
    subsection.maxAdviceStrings = 1;
    definition.appendSubsection(subsection);

    const QList<MetricDefinition> list = reportValueDefinitions(definition);
    QStringList lines;
    for (const MetricDefinition& declared : list) {
        EXPECT_EQ(declared.valuePath, declared.id);
        lines += lineOf(declared, declared.version);
    }
    const QStringList own{"custom.report.metric.b.c|Double|0|B|%",
                          "report.name|Bool|2|B|-",
                          "custom.report.summary.first.advice|String|0|Advice|-",
                          "custom.report.summary.later.advice|String|0|Advice|-",
                          "custom.report.subsection.s2.advice1|String|0|Advice 1|-",
                          "custom.report.subsection.s2.advice2|String|0|Advice 2|-",
                          "custom.report.subsection.last.advice1|String|0|Advice 1|-"};
    EXPECT_EQ(lines.join("\n").toStdString(),
              (own + overviewLines + headerLines + valueLines).join("\n").toStdString());
    MetricStore store;
    store.addDefinitions(list);
    EXPECT_EQ(store.definition("report.name").type, MetricType::String);
    EXPECT_TRUE(store.definition("report.name").displayName.isNull());
}
