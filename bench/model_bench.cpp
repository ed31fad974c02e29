// Times what tools do besides making a report: merging partial definitions, reading metric data.
#include "definition/report_definition.h"
#include "definition/schema_file.h"
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

/// A partial document with records of its own, and one that amends an earlier one.
QByteArray makePart(int number)
{
    const QByteArray part = QByteArray::number(number);
    QByteArray metrics;
    QByteArray entries;
    QByteArray sections;
    for (int i = 0; i < recordsInPart; ++i) {
        const QByteArray id = "part" + part + ".m" + QByteArray::number(i);
        metrics += "<reportMetric id=\"" + id + "\" displayName=\"M\" breakdownSubsection=\"s" +
                   part + "\"/>";
        entries += "<entry id=\"" + id + "\" reportMetric=\"" + id + "\"/>";
        sections += "<entry reportMetric=\"" + id + "\"/>";
    }
    return "<partialReport xmlns=\"http://www.corvane.example/2016/CorvaneReports\" name=\"part" +
           part + "\"><reportMetrics>" + metrics + "</reportMetrics><summary>" + entries +
           "</summary><subsections><subsection id=\"s" + part + "\" heading=\"S\">" + sections +
           "</subsection><subsection id=\"section0\" maxAdviceStrings=\"2\"/></subsections>"
           "</partialReport>";
}

void merge(benchmark::State& state)
{
    const QByteArray full = makeDefinition(20);
    std::vector<QByteArray> parts;
    for (int i = 0; i < state.range(0); ++i)
        parts.push_back(makePart(i));
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

BENCHMARK(merge)
    ->Arg(1)
    ->Arg(25)
    ->Arg(50)
    ->Arg(100)
    ->Arg(200)
    ->Unit(benchmark::kMillisecond)
    ->Complexity();
BENCHMARK(readMetricData)
    ->Arg(20)
    ->Arg(500)
    ->Arg(2000)
    ->Arg(8000)
    ->Unit(benchmark::kMicrosecond)
    ->Complexity();
BENCHMARK(readMetricDataFloor)
    ->Arg(20)
    ->Arg(500)
    ->Arg(2000)
    ->Arg(8000)
    ->Unit(benchmark::kMicrosecond)
    ->Complexity();

} // namespace
