// Times the calls that make a report, each beside a floor that no implementation can be below.
#include "api/c_interface.h"

#include <QByteArray>
#include <QXmlStreamReader>

#include <benchmark/benchmark.h>

#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

namespace {

constexpr int metricsPerSection = 20;

QByteArray metricId(int i)
{
    return "group" + QByteArray::number(i / metricsPerSection) + ".metric" + QByteArray::number(i);
}

/// A definition like those that people write: a third of the metrics in the summary's colours, all
/// of them in sections, with descriptions and placeholders.
QByteArray makeDefinition(int metrics)
{
    QByteArray xml =
        "<report xmlns=\"http://www.corvane.example/2016/CorvaneReports\" name=\"Bench\">"
        "<reportMetrics>";
    for (int i = 0; i < metrics; ++i) {
        xml += "<reportMetric id=\"" + metricId(i) + "\" displayName=\"Metric number " +
               QByteArray::number(i) + "\" units=\"" + (i % 2 ? "%" : "B/s") + "\" colour=\"hsl(" +
               QByteArray::number(i % 360) + ",70,50)\"/>";
    }
    xml += "</reportMetrics><summary><heading>How <b>${corvane.appDetails.exeName}</b> "
           "spent its time</heading>";
    for (int i = 0; i < 4; ++i) {
        xml += "<entry id=\"entry" + QByteArray::number(i) + "\" reportMetric=\"" + metricId(i) +
               "\"><description>Share of time: ${*" + metricId(i) + "}</description></entry>";
    }
    xml += "</summary><subsections>";
    for (int i = 0; i < metrics; ++i) {
        const QByteArray section = QByteArray::number(i / metricsPerSection);
        if (i % metricsPerSection == 0) {
            xml += "<subsection id=\"section" + section + "\" heading=\"Section " + section +
                   "\" colour=\"#336699\"><text>What the metrics of this section say.</text>";
        }
        xml += "<entry reportMetric=\"" + metricId(i) +
               "\"><description>A sentence on <em>this</em> metric.</description></entry>";
        if (i % metricsPerSection == metricsPerSection - 1 || i == metrics - 1)
            xml += "</subsection>";
    }
    return xml + "</subsections></report>";
}

std::vector<QByteArray> metricIds(int metrics)
{
    std::vector<QByteArray> ids;
    for (int i = 0; i < metrics; ++i)
        ids.push_back(metricId(i));
    return ids;
}

void setAllValues(vantrel_handle* report, const std::vector<QByteArray>& ids)
{
    double value = 1.5;
    for (const QByteArray& id : ids)
        vantrel_set_value_double(report, id.constData(), value += 0.25);
}

vantrel_handle* makeFilledReport(int metrics)
{
    vantrel_handle* report = vantrel_create(makeDefinition(metrics).constData());
    vantrel_set_value_string(report, CORVANE_APPLICATION_DETAIL_EXE_NAME, "bench");
    vantrel_set_value_int(report, CORVANE_APPLICATION_DETAIL_NUM_PROCESSES, 4);
    setAllValues(report, metricIds(metrics));
    return report;
}

std::size_t pageSize(const char* page)
{
    return std::size_t(std::strstr(page, "</html>") - page) + std::strlen("</html>");
}

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

} // namespace

BENCHMARK_MAIN();
