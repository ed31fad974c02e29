// Writes the pages that the browser tests look at, through the exported calls.
// usage: make_pages FOLDER
#include "vantrel.h"

#include <cstdlib>
#include <cstring>
#include <fstream>
#include <iostream>
#include <limits>
#include <string>
#include <vector>

namespace {

struct Metric {
    std::string id;
    std::string name;
    double value;
    std::string attributes = "units=\"%\"";
};

std::string escaped(const std::string& text)
{
    std::string result;
    for (const char c : text) {
        switch (c) {
        case '<':
            result += "&lt;";
            break;
        case '&':
            result += "&amp;";
            break;
        case '"':
            result += "&quot;";
            break;
        default:
            result += c;
        }
    }
    return result;
}

/// A definition that is put together piece by piece, and the values that go with it.
struct Page {
    std::vector<Metric> metrics;
    std::string heading = "The run of <b>${corvane.appDetails.exeName}</b>";
    std::string summary;
    std::string subsections;
    std::string exeName = "app";
    std::string notes;
    std::string commandLine;

    void addSummaryRow(const std::string& id, const std::string& more = "")
    {
        summary += "<entry id=\"row." + id + "\" reportMetric=\"" + id + "\" " + more + "/>";
    }

    std::string definition() const
    {
        std::string xml =
            "<report xmlns=\"http://www.corvane.example/2016/CorvaneReports\" name=\"Page\">"
            "<reportMetrics>";
        for (const Metric& metric : metrics) {
            xml += "<reportMetric id=\"" + metric.id + "\" displayName=\"" + escaped(metric.name) +
                   "\" " + metric.attributes + "/>";
        }
        return xml + "</reportMetrics><summary><heading>" + heading + "</heading>" + summary +
               "</summary><subsections>" + subsections + "</subsections></report>";
    }
};

void check(vantrel* report, int code)
{
    if (code == VANTREL_OK)
        return;
    std::cerr << code << ": " << vantrel_error_message(report) << '\n';
    std::exit(1);
}

void write(const Page& page, const std::string& path)
{
    vantrel* report = vantrel_create(page.definition().c_str());
    check(report, vantrel_has_error(report));
    for (const Metric& metric : page.metrics)
        check(report, vantrel_set_value_double(report, metric.id.c_str(), metric.value));
    const auto set = [report](const char* id, const std::string& text) {
        check(report, vantrel_set_value_string(report, id, text.c_str()));
    };
    set(CORVANE_APPLICATION_DETAIL_EXE_NAME, page.exeName);
    set(CORVANE_APPLICATION_DETAIL_NOTES, page.notes);
    set(CORVANE_APPLICATION_DETAIL_COMMAND_LINE, page.commandLine);
    check(report, vantrel_set_value_int(report, CORVANE_APPLICATION_DETAIL_NUM_PROCESSES, 16));
    char* html = nullptr;
    check(report, vantrel_write_html(report, &html));
    std::ofstream(path, std::ios::binary)
        .write(html, std::strstr(html, "</html>") - html + std::strlen("</html>"));
    std::free(html);
    vantrel_free(report);
}

Page makeTypical()
{
    Page page;
    page.exeName = "typical";
    page.metrics = {
        {"compute", "Compute", 60.04, "units=\"%\" colour=\"#2e7d32\" breakdownSubsection=\"s1\""},
        {"network", "Network", 30, "units=\"%\" colour=\"rgb(21,101,192)\""},
        {"storage", "Storage", 9.96, "units=\"%\" colour=\"hsl(30,90,30)\""},
        {"plain", "No colour", 0},
        {"rate.read", "Read rate", 2.5e6, "units=\"B/s\" colour=\"#7b1fa2\""},
        {"rate.write", "Write rate", 5e6, "units=\"B/s\" colour=\"#7b1fa2\""},
        {"memory", "Memory", 3221225472.0, "units=\"B\""},
        {"same", "Read rate", 12},
    };
    page.addSummaryRow("compute");
    page.addSummaryRow("network", "chartLabel=\"Net\"");
    page.addSummaryRow("storage");
    page.addSummaryRow("plain");
    page.addSummaryRow("same", "requires=\"applicationDetails.hasGpu\"");
    page.subsections =
        "<subsection id=\"s1\" heading=\"First\" colour=\"#c62828\"><text>All of it.</text>"
        "<entry reportMetric=\"compute\" colour=\"#0000ff\"><description>Opens</description>"
        "</entry><entry reportMetric=\"network\"/></subsection>"
        "<subsection id=\"s2\" heading=\"Second\">"
        "<entry reportMetric=\"rate.read\" group=\"rates\"><description>Reading</description>"
        "</entry><spacer/><entry reportMetric=\"rate.write\" group=\"rates\"/>"
        "<entry reportMetric=\"memory\" unitPrefix=\"iec\" maxBarValue=\"6442450944\"/>"
        "<entry reportMetric=\"plain\" machineReadableOnly=\"true\"/></subsection>"
        "<subsection id=\"s3\" heading=\"Third\"><entry reportMetric=\"same\">"
        "<description>Another of this name</description></entry></subsection>"
        "<subsection id=\"s4\" heading=\"Unseen\" requires=\"applicationDetails.hasGpu\">"
        "<entry reportMetric=\"same\"/></subsection>";
    return page;
}

/// Texts that would do harm if they were taken for anything but texts.
const std::vector<std::string> hostileTexts = {
    "</script><script>window.hacked = 1</script>",
    "<img src=x onerror=\"window.hacked = 2\">",
    "{{x}} {{{y}}} {{#if}} ${z}",
    "'); window.hacked = 3; ('",
    "\"><svg onload='window.hacked = 4'>",
    "\\'); window.hacked = 5; //",
    "&#39;); window.hacked = 6; (&#39;",
    "line\xe2\x80\xa8separators\xe2\x80\xa9here <!-- ]]>",
    "emoji \xf0\x9f\x9a\x80 and \xd7\xa2\xd7\x91\xd7\xa8\xd7\x99\xd7\xaa",
};

Page makeHostile()
{
    Page page;
    page.exeName = hostileTexts[0] + hostileTexts[2];
    page.notes = hostileTexts[1] + hostileTexts[7];
    page.commandLine = hostileTexts[4] + hostileTexts[8];
    page.subsections = "<subsection id=\"s\" heading=\"" + escaped(hostileTexts[0]) + "\">";
    for (std::size_t i = 0; i < hostileTexts.size(); ++i) {
        const std::string id = "m" + std::to_string(i);
        page.metrics.push_back({id, hostileTexts[i], 10.0 * double(i + 1)});
        page.addSummaryRow(id, "chartLabel=\"" + escaped(hostileTexts[i]) + "\"");
        page.subsections += "<entry reportMetric=\"" + id + "\" group=\"" +
                            escaped(hostileTexts[i]) + "\"><description>Detail " +
                            std::to_string(i) + " &lt;b&gt; &amp;amp;</description></entry>";
    }
    page.subsections += "</subsection>";
    return page;
}

Page makeRows(int count)
{
    Page page;
    for (int i = 0; i < count; ++i) {
        const std::string id = "m" + std::to_string(i);
        page.metrics.push_back({id, "Row " + std::to_string(i), 25});
        page.addSummaryRow(id);
    }
    return page;
}

Page makeNonFinite()
{
    Page page = makeRows(4);
    page.metrics[0].value = std::numeric_limits<double>::quiet_NaN();
    page.metrics[1].value = std::numeric_limits<double>::infinity();
    page.metrics[2].value = -std::numeric_limits<double>::infinity();
    page.subsections = "<subsection id=\"s\" heading=\"Values\"><entry reportMetric=\"m0\"/>"
                       "<entry reportMetric=\"m1\"/><entry reportMetric=\"m3\"/></subsection>";
    return page;
}

Page makeLong()
{
    Page page = makeTypical();
    const std::string word(120, 'w');
    page.exeName = word;
    page.commandLine = "mpirun " + word + " --an-option=" + word;
    page.metrics[0].name = word;
    page.metrics[4].name = "A name of many words that goes on and on and is longer than a column";
    page.heading = word;
    page.subsections.insert(page.subsections.find("All of it."), word);
    return page;
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 2) {
        std::cerr << "usage: make_pages FOLDER\n";
        return 2;
    }
    const std::string folder = std::string(argv[1]) + '/';
    write(makeTypical(), folder + "typical.html");
    write(makeHostile(), folder + "hostile.html");
    write(makeRows(3), folder + "three_rows.html");
    write(makeRows(2), folder + "two_rows.html");
    write(makeNonFinite(), folder + "non_finite.html");
    write(makeLong(), folder + "long.html");
    std::ofstream list(folder + "hostile-texts.txt", std::ios::binary);
    for (const std::string& text : hostileTexts)
        list << text << '\0';
    return 0;
}
