#include "definition/builtin_metrics.h"

#include "definition/metric_ids.h"

#include <cstddef>

namespace vantrel {

using report::ReportMetric;

namespace {

struct BuiltinRow {
    const char* id;
    MetricType type;
    int version;
    const char* displayName = nullptr;
    const char* units = nullptr;
};

constexpr MetricType String = MetricType::String;
constexpr MetricType Bool = MetricType::Bool;
constexpr MetricType Integer = MetricType::Integer;
constexpr MetricType Precise = MetricType::DoubleWithPrecision;

constexpr BuiltinRow overviewRows[] = {
    {"version", Integer, 1, "Version"},
    {ids::overviewBound2Type, String, 1},
    {ids::overviewBound2Short, String, 1},
    {ids::overviewBound2Long, String, 1},
    {ids::overviewBound1Type, String, 1},
    {ids::overviewBound1Short, String, 1},
    {ids::overviewBound1Long, String, 1},
    {ids::overviewAdvice, String, 1},
    {ids::overviewBound2SubsectionHeading, String, 3},
    {ids::overviewBound2SubsectionId, String, 3},
    {ids::overviewBound1SubsectionHeading, String, 3},
    {ids::overviewBound1SubsectionId, String, 3},
    {ids::reportSrcValues, String, 3},
    {ids::reportSrcDefinition, String, 3},
    {ids::reportVersionSoftware, String, 3},
    {ids::reportVersionApi, Integer, 3},
    {ids::reportName, String, 3},
};

constexpr BuiltinRow headerRows[] = {
    {ids::applicationDetailsProcessesPlain, Integer, 1, "Processes", "processes"},
    {ids::applicationDetailsExeName, String, 1, "Executable"},
};

constexpr BuiltinRow valueRows[] = {
    {ids::applicationDetailsHasEnergyMetricsEnabled, Bool, 1},
    {ids::applicationDetailsHasAcceleratorMetricsEnabled, Bool, 1},
    {ids::applicationDetailsHasGpu, Bool, 1},
    {ids::applicationDetailsIsOpenMp, Bool, 1},
    {ids::applicationDetailsInputFile, String, 1, "Input file"},
    {ids::applicationDetailsNotes, String, 1, "Notes"},
    {ids::applicationDetailsExePath, String, 1, "Full path"},
    {ids::applicationDetailsTimePlain, Integer, 1, "Total time", "seconds"},
    {ids::applicationDetailsStartDate, String, 1, "Start time"},
    {ids::applicationDetailsHostname, String, 1, "Machine"},
    {ids::applicationDetailsOmpNumThreads, String, 1, "Number of OMP threads"},
    {ids::applicationDetailsHostGpuMemoryPlain, Precise, 1, "GPU Memory", "B"},
    {ids::applicationDetailsHostMemoryPlain, Precise, 1, "Memory", "B"},
    {ids::applicationDetailsGpusPerNodePlain, Precise, 1, "GPUs", "GPUs"},
    {ids::applicationDetailsLogicalCoresPerNode, Integer, 1, "Logical cores per node",
     "cores/node"},
    {ids::applicationDetailsPhysicalCoresPerNode, Integer, 1, "Physical cores per node",
     "cores/node"},
    {ids::applicationDetailsNodesPlain, Integer, 1, "Resources", "nodes"},
    {ids::applicationDetailsCommandLine, String, 1, "Command"},
};

template <std::size_t count>
QList<ReportMetric> metricsFrom(const BuiltinRow (&rows)[count])
{
    QList<ReportMetric> list;
    for (const BuiltinRow& row : rows) {
        ReportMetric metric;
        metric.id = QLatin1String(row.id);
        metric.type = row.type;
        metric.corvaneMetricVersion = row.version;
        metric.displayName = row.displayName ? QString::fromLatin1(row.displayName) : QString();
        metric.units = row.units ? QString::fromLatin1(row.units) : QString();
        list.append(metric);
    }
    return list;
}

QSet<QString> builtinIds()
{
    QSet<QString> ids;
    for (const auto& list :
         {builtinOverviewMetrics(currentMetricVersion), builtinHeaderMetrics(currentMetricVersion),
          builtinValueMetrics(currentMetricVersion)}) {
        for (const ReportMetric& metric : list)
            ids.insert(metric.id);
    }
    return ids;
}

} // namespace

QList<ReportMetric> builtinOverviewMetrics(int /*version*/)
{
    static const auto& list = *new QList<ReportMetric>(metricsFrom(overviewRows));
    return list;
}

QList<ReportMetric> builtinHeaderMetrics(int /*version*/)
{
    static const auto& list = *new QList<ReportMetric>(metricsFrom(headerRows));
    return list;
}

QList<ReportMetric> builtinValueMetrics(int /*version*/)
{
    static const auto& list = *new QList<ReportMetric>(metricsFrom(valueRows));
    return list;
}

bool isBuiltinMetric(const QString& id)
{
    static const auto& ids = *new QSet<QString>(builtinIds());
    return ids.contains(id);
}

bool isPlainMetric(const QString& id)
{
    static const auto& plainIds = *new QSet<QString>{
        QLatin1String(ids::energyAccTotalPlain),
        QLatin1String(ids::energyCpuTotalPlain),
        QLatin1String(ids::energyTotalPlain),
        QLatin1String(ids::applicationDetailsTimePlain),
        QLatin1String(ids::applicationDetailsHostGpuMemoryPlain),
        QLatin1String(ids::applicationDetailsHostMemoryPlain),
        QLatin1String(ids::applicationDetailsGpusPerNodePlain),
        QLatin1String(ids::applicationDetailsNodesPlain),
        QLatin1String(ids::applicationDetailsProcessesPlain),
    };
    return plainIds.contains(id);
}

} // namespace vantrel
