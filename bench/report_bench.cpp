// Times the calls that make a report, each beside a floor that no implementation can be below.
#include "api/custom_report.h"
#include "sample_report.h"

#include <QXmlStreamReader>

#include <benchmark/benchmark.h>

#include <cstdlib>
#include <cstring>

namespace {

void create(benchmark::State& state)
{
    const QByteArray xml = makeDefinition(int(state.range(0)));
    for (auto _ : state) {
        vantrel_handle* report = vantrel_create(xml.constData());
        if (vantrel_has_error(report))
            state.SkipWithError(vantrel_error_message(report));
        vantrel_free(report);
    }
    state.SetComplexityN(state.range(0));
}

void createFloor(benchmark::State& state)
{
    const QByteArray xml = makeDefinition(int(state.range(0)));
    for (auto _ : state) {
        QXmlStreamReader reader(xml);
        while (!reader.atEnd())
            benchmark::DoNotOptimize(reader.readNext());
    }
    state.SetComplexityN(state.range(0));
}

void set(benchmark::State& state)
{
    vantrel_handle* report = makeFilledReport(int(state.range(0)));
    const std::vector<QByteArray> ids = metricIds(int(state.range(0)));
    for (auto _ : state)
        setAllValues(report, ids);
    vantrel_free(report);
    state.SetComplexityN(state.range(0));
}

void write(benchmark::State& state)
{
    vantrel_handle* report = makeFilledReport(int(state.range(0)));
    for (auto _ : state) {
        char* page = nullptr;
        if (vantrel_write_html(report, &page) != VANTREL_OK)
            state.SkipWithError(vantrel_error_message(report));
        std::free(page);
    }
    vantrel_free(report);
    state.SetComplexityN(state.range(0));
}

void writeFloor(benchmark::State& state)
{
    vantrel_handle* report = makeFilledReport(int(state.range(0)));
    char* page = nullptr;
    vantrel_write_html(report, &page);
    const std::size_t size = pageSize(page);
    for (auto _ : state) {
        char* copy = static_cast<char*>(std::malloc(size));
        std::memcpy(copy, page, size);
        benchmark::DoNotOptimize(copy);
        std::free(copy);
    }
    std::free(page);
    vantrel_free(report);
    state.counters["bytes"] = double(size);
    state.SetComplexityN(state.range(0));
}

void generate(benchmark::State& state, vantrel::ReportOutputKind kind)
{
    vantrel_handle* report = makeFilledReport(int(state.range(0)));
    for (auto _ : state) {
        QByteArray bytes;
        if (report->generateReport(&bytes, kind) != VANTREL_OK)
            state.SkipWithError(vantrel_error_message(report));
        benchmark::DoNotOptimize(bytes);
    }
    vantrel_free(report);
    state.SetComplexityN(state.range(0));
}

void text(benchmark::State& state)
{
    generate(state, vantrel::ReportOutputKind::Text);
}

void csv(benchmark::State& state)
{
    generate(state, vantrel::ReportOutputKind::Csv);
}

void sizes(benchmark::internal::Benchmark* bench)
{
    for (const int metrics : {20, 200, 500, 2000, 8000})
        bench->Arg(metrics);
    bench->Unit(benchmark::kMicrosecond)->Complexity();
}

BENCHMARK(create)->Apply(sizes);
BENCHMARK(createFloor)->Apply(sizes);
BENCHMARK(set)->Apply(sizes);
BENCHMARK(write)->Apply(sizes);
BENCHMARK(writeFloor)->Apply(sizes);
BENCHMARK(text)->Apply(sizes);
BENCHMARK(csv)->Apply(sizes);

} // namespace

BENCHMARK_MAIN();
