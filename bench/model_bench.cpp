// Times what tools do besides making a report: merging partial definitions, reading metric data.
#include "definition/compiled_in_schema.h"
#include "definition/report_definition.h"
#include "metrics/metric_store.h"
#include "metrics/value_definitions.h"
#include "sample_report.h"

#include <QJsonDocument>

#include <benchmark/benchmark.h>

#include <memory>

using namespace vantrel;
using namespace vantrel::report;

namespace {

constexpr int recordsInPart = 100;

/// A partial document with records of its own. Its subsections take the place of all earlier ones,
/// or stand beside them and amend one.
QByteArray makePart(int number, bool overwrites)
{
    const QByteArray part = QByteArray::number(number);
    const QByteArray section = overwrites ? "s" : "s" + part;
    QByteArray metrics;
    QByteArray entries;
    QByteArray rows;
    for (int i = 0; i < recordsInPart; ++i) {
        const QByteArray id = "part" + part + ".m" + QByteArray::number(i);
        metrics += "<reportMetric id=\"" + id + "\" displayName=\"M\" breakdownSubsection=\"" +
                   section + "\"/>";
        entries += "<entry id=\"" + id + "\" reportMetric=\"" + id + "\"/>";
        rows += "<entry reportMetric=\"" + id + "\"/>";
    }
    return "<partialReport xmlns=\"http://www.corvane.example/2016/CorvaneReports\" name=\"part" +
           part + "\"><reportMetrics>" + metrics + "</reportMetrics><summary>" + entries +
           "</summary><subsections" + (overwrites ? " overwrite=\"true\"" : "") +
           "><subsection id=\"" + section + "\" heading=\"S\">" + rows + "</subsection>" +
           (overwrites ? "" : "<subsection id=\"section0\" maxAdviceStrings=\"2\"/>") +
           "</subsections></partialReport>";
}

void mergeParts(benchmark::State& state, bool overwrite)
{
    const QByteArray full = makeDefinition(20);
    std::vector<QByteArray> parts;
    for (int i = 0; i < state.range(0); ++i)
        parts.push_back(makePart(i, overwrite));
    for (auto _ : state) {
        QString error;
        const std::unique_ptr<ReportDefinition> definition(
            ReportDefinition::load(full, QUrl(), compiledInSchema(), &error, 0, ReportIdScheme()));
        for (const QByteArray& part : parts) {
            if (!definition->merge(part, QUrl(), compiledInSchema(), &error, 0))
                state.SkipWithError(qPrintable(error));
        }
    }
    state.SetComplexityN(state.range(0));
}

void merge(benchmark::State& state)
{
    mergeParts(state, false);
}

void mergeOver(benchmark::State& state)
{
    mergeParts(state, true);
}

/// A store with declarations and values, as a metric data file has them.
QByteArray makeMetricData(int metrics)
{
    MetricStore store;
    for (int i = 0; i < metrics; ++i) {
        MetricDefinition metric;
        metric.id = QString::fromUtf8(metricId(i));
        metric.valuePath = metric.id;
        metric.type = MetricType::Double;
        store.addDefinition(metric);
        store.setValue(metric.id, i * 0.25);
    }
    return QJsonDocument({{QStringLiteral("metricData"), store.toMetricDataObject()},
                          {QStringLiteral("data"), store.toDataObject()}})
        .toJson(QJsonDocument::Compact);
}

void readMetricData(benchmark::State& state)
{
    const QString text = QString::fromUtf8(makeMetricData(int(state.range(0))));
    for (auto _ : state) {
        MetricStore store;
        QString error;
        if (!store.readJson(text, &error))
            state.SkipWithError(qPrintable(error));
    }
    state.SetComplexityN(state.range(0));
}

/// The same text, parsed and nothing else.
void readMetricDataFloor(benchmark::State& state)
{
    const QByteArray text = makeMetricData(int(state.range(0)));
    for (auto _ : state)
        benchmark::DoNotOptimize(QJsonDocument::fromJson(text));
    state.SetComplexityN(state.range(0));
}

void numbersOfParts(benchmark::internal::Benchmark* bench)
{
    for (const int parts : {25, 50, 100, 200})
        bench->Arg(parts);
    bench->Unit(benchmark::kMillisecond)->Complexity();
}

void numbersOfMetrics(benchmark::internal::Benchmark* bench)
{
    for (const int metrics : {20, 500, 2000, 8000})
        bench->Arg(metrics);
    bench->Unit(benchmark::kMicrosecond)->Complexity();
}

BENCHMARK(merge)->Apply(numbersOfParts);
BENCHMARK(mergeOver)->Apply(numbersOfParts);
BENCHMARK(readMetricData)->Apply(numbersOfMetrics);
BENCHMARK(readMetricDataFloor)->Apply(numbersOfMetrics);

} // namespace
