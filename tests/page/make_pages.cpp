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

struct Page {
    std::string definition;
    std::vector<std::pair<std::string, double>> values;
    std::string exeName = "app";
    std::string notes;
    std::string commandLine;
    std::string path;
    std::string advice; ///< of the run, of the entry row.network and of the section s1
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
    vantrel* report = vantrel_create(page.definition.c_str());
    check(report, vantrel_has_error(report));
    for (const auto& [id, value] : page.values)
        check(report, vantrel_set_value_double(report, id.c_str(), value));
    const auto set = [report](const char* id, const std::string& text) {
        check(report, vantrel_set_value_string(report, id, text.c_str()));
    };
    set(CORVANE_APPLICATION_DETAIL_EXE_NAME, page.exeName);
    set(CORVANE_APPLICATION_DETAIL_NOTES, page.notes);
    set(CORVANE_APPLICATION_DETAIL_COMMAND_LINE, page.commandLine);
    set(CORVANE_APPLICATION_DETAIL_EXE_PATH, page.path);
    if (!page.advice.empty()) {
        const auto advise = [&](const char* place) { return page.advice + ' ' + place; };
        check(report, vantrel_set_dominant_metric_advice(report, advise("run").c_str()));
        check(report,
              vantrel_set_summary_entry_advice(report, "row.network", advise("network").c_str()));
        check(report, vantrel_set_section_advice(report, "s1", advise("first").c_str()));
    }
    check(report, vantrel_set_value_int(report, CORVANE_APPLICATION_DETAIL_NUM_PROCESSES, 16));
    char* html = nullptr;
    check(report, vantrel_write_html(report, &html));
    std::ofstream(path, std::ios::binary)
        .write(html, std::strstr(html, "</html>") - html + std::strlen("</html>"));
    std::free(html);
    vantrel_free(report);
}

std::string makeDefinition(const std::string& metrics, const std::string& summary,
                           const std::string& subsections)
{
    return "<report xmlns=\"http://www.corvane.example/2016/CorvaneReports\" name=\"Page\">"
           "<reportMetrics>" +
           metrics +
           "</reportMetrics><summary><heading>The run of <b>${corvane.appDetails.exeName}</b>"
           "</heading>" +
           summary + "</summary><subsections>" + subsections + "</subsections></report>";
}

Page makeTypical()
{
    constexpr char metrics[] = R"xml(
        <reportMetric id="compute" displayName="Compute" units="%" colour="#2e7d32"
                      breakdownSubsection="s1"/>
        <reportMetric id="network" displayName="Network" units="%" colour="rgb(21,101,192)"/>
        <reportMetric id="storage" displayName="Storage" units="%" colour="hsl(30,90,30)"/>
        <reportMetric id="plain" displayName="No colour" units="%"/>
        <reportMetric id="read" displayName="Read rate" units="B/s" colour="#7b1fa2"/>
        <reportMetric id="write" displayName="Write rate" units="B/s" colour="#7b1fa2"/>
        <reportMetric id="memory" displayName="Memory" units="B"/>
        <reportMetric id="same" displayName="Read rate" units="%"/>)xml";
    constexpr char summary[] = R"(
        <entry id="row.compute" reportMetric="compute"/>
        <entry id="row.network" reportMetric="network" chartLabel="Net"/>
        <entry id="row.storage" reportMetric="storage"/>
        <entry id="row.plain" reportMetric="plain"/>
        <entry id="row.same" reportMetric="same" requires="applicationDetails.hasGpu"/>)";
    constexpr char subsections[] = R"(
        <subsection id="s1" heading="First" colour="#c62828"><text>All of it.</text>
          <entry reportMetric="compute"><description>Opens</description></entry>
          <spacer/>
          <entry reportMetric="network" colour="#0000ff"/>
        </subsection>
        <subsection id="s2" heading="Second">
          <entry reportMetric="read" group="rates"><description>Reading</description></entry>
          <entry reportMetric="write" group="rates"/>
          <entry reportMetric="memory" unitPrefix="iec" maxBarValue="6442450944"/>
          <entry reportMetric="plain" machineReadableOnly="true"/>
        </subsection>
        <subsection id="s3" heading="Third">
          <entry reportMetric="same"><description>Another of this name</description></entry>
        </subsection>
        <subsection id="s4" heading="Unseen" requires="applicationDetails.hasGpu">
          <entry reportMetric="same"/>
        </subsection>)";
    Page page;
    page.exeName = "typical";
    page.notes = "one <line>\n  and another";
    page.path = "/home/ada/runs/typical";
    page.advice = "<em>R\xc3\xa9\x64uire</em> \xe2\x80\x93 \xe6\xb8\x9b";
    page.definition = makeDefinition(metrics, summary, subsections);
    page.values = {{"compute", 60.04}, {"network", 30}, {"storage", 9.96},        {"plain", 0},
                   {"read", 2.5e6},    {"write", 5e6},  {"memory", 3221225472.0}, {"same", 12}};
    return page;
}

/// The typical page with long words and names, values that are no numbers and a logo of its own.
Page makeLong()
{
    const std::string word(120, 'w');
    Page page = makeTypical();
    page.exeName = word;
    page.commandLine = "mpirun " + word + " --an-option=" + word;
    page.notes = page.advice = page.path = word;
    page.values[3].second = std::numeric_limits<double>::infinity();
    page.values[4].second = std::numeric_limits<double>::quiet_NaN();
    page.values[6].second = 1e30;
    const std::pair<std::string, std::string> changes[] = {
        {"The run of", word},
        {"All of it.", word + " and all of it."},
        {"Opens", word + ' ' + word + ' ' + word + ' ' + word + ' ' + word},
        {"\"Page\"",
         "\"Page\" logo=\"https://own.example/logo.png\" logoLink=\"https://own.example/\""},
        {"Second", word},
        {"\"Compute\"", '"' + word + '"'},
        {"B/s", word},
        {"Read rate", "A name of many words that goes on and on and is longer than a column"}};
    for (const auto& [from, to] : changes)
        page.definition.replace(page.definition.find(from), from.size(), to);
    return page;
}

std::string escaped(const std::string& text)
{
    std::string result;
    for (const char c : text)
        result += std::strchr("<&\"", c) ? "&#" + std::to_string(c) + ';' : std::string(1, c);
    return result;
}

/// A page that has each of the names wherever a definition may have one.
Page makeRows(const std::vector<std::string>& names, const std::vector<double>& values)
{
    Page page;
    std::string metrics;
    std::string summary;
    std::string entries;
    for (std::size_t i = 0; i < names.size(); ++i) {
        const std::string id = "m" + std::to_string(i);
        const std::string name = escaped(names[i]);
        page.values.push_back({id, values[i]});
        metrics += "<reportMetric id=\"" + id + "\" units=\"%\" displayName=\"" + name + "\"/>";
        summary += "<entry id=\"row." + id + "\" reportMetric=\"" + id + "\" chartLabel=\"" + name +
                   "\"/>";
        entries += "<entry reportMetric=\"" + id + "\" group=\"" + name +
                   "\"><description>Detail " + id + " &lt;b&gt; &amp;amp;</description></entry>";
    }
    const std::string heading = "<subsection id=\"s\" heading=\"" + escaped(names[0]) + "\">";
    page.definition = makeDefinition(metrics, summary, heading + entries + "</subsection>");
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
    Page page = makeRows(hostileTexts, std::vector<double>(hostileTexts.size(), 10));
    page.exeName = hostileTexts[0] + hostileTexts[2];
    page.notes = hostileTexts[1] + hostileTexts[7];
    page.commandLine = hostileTexts[4] + hostileTexts[8];
    return page;
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 2)
        return 2;
    const std::string folder = std::string(argv[1]) + '/';
    write(makeTypical(), folder + "typical.html");
    write(makeLong(), folder + "long.html");
    write(makeHostile(), folder + "hostile.html");
    write(makeRows({"A", "B"}, {25, 25}), folder + "two_rows.html");
    std::ofstream list(folder + "hostile-texts.txt", std::ios::binary);
    for (const std::string& text : hostileTexts)
        list << text << '\0';
    return 0;
}
