#include "sample_report.h"

#include <cstring>

QByteArray metricId(int i)
{
    return "group" + QByteArray::number(i / usualSectionSize) + ".metric" + QByteArray::number(i);
}

QByteArray makeDefinition(int metrics, int sectionSize)
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
        const QByteArray section = QByteArray::number(i / sectionSize);
        if (i % sectionSize == 0) {
            xml += "<subsection id=\"section" + section + "\" heading=\"Section " + section +
                   "\" colour=\"#336699\"><text>What the metrics of this section say.</text>";
        }
        xml += "<entry reportMetric=\"" + metricId(i) +
               "\"><description>A sentence on <em>this</em> metric.</description></entry>";
        if (i % sectionSize == sectionSize - 1 || i == metrics - 1)
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

vantrel_handle* makeFilledReport(int metrics, int sectionSize)
{
    vantrel_handle* report = vantrel_create(makeDefinition(metrics, sectionSize).constData());
    vantrel_set_value_string(report, CORVANE_APPLICATION_DETAIL_EXE_NAME, "bench");
    vantrel_set_value_int(report, CORVANE_APPLICATION_DETAIL_NUM_PROCESSES, 4);
    setAllValues(report, metricIds(metrics));
    return report;
}

std::size_t pageSize(const char* page)
{
    return std::size_t(std::strstr(page, "</html>") - page) + std::strlen("</html>");
}
