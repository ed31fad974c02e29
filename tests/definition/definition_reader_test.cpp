#include "definition/definition_text.h"

#include <gtest/gtest.h>

using namespace vantrel::report;

namespace {

QString missing(const char* attribute, const char* element)
{
    return QString("Missing string attribute '%1' for '%2' element").arg(attribute, element);
}

QString missingWord(const char* attribute)
{
    return QString("Missing attribute '%1' for 'sourceDetails' element").arg(attribute);
}

QString notBool(const char* value, const char* attribute, const char* element)
{
    return QString("Invalid boolean value '%1' for '%2' attribute in '%3' element. Expected "
                   "'true', 'false', '0' or '1'.")
        .arg(value, attribute, element);
}

QString notInt(const char* value, const char* attribute, const char* element)
{
    return QString("Could not convert '%1' to an int in attribute '%2' for '%3' element")
        .arg(value, attribute, element);
}

QString notDouble(const char* value)
{
    return QString("Could not convert '%1' to an double in attribute 'maxBarValue' for 'entry' "
                   "element")
        .arg(value);
}

QString expected(const char* element, const char* found)
{
    return QString("Expected start of '%1' element, got '%2'").arg(element, found);
}

QString noMetric(const char* id)
{
    return QString("There is no metric with id=\"%1\" in this report").arg(id);
}

struct Row {
    const char* name;
    QString text;
    QString message;
};

const QString silent;

const Row rootRows[] = {
    {"nothing", "@", missing("name", "")},
    {"root and name", "<x/>@", missing("name", "x")},
    {"empty name", "<report name=''/>", silent},
    {"root", "<partialReport name='r'>@",
     "Expected 'report' as the root element, got 'partialReport'"},
    {"no metrics", changed("<reportMetrics>", "<x>@"), expected("reportMetrics", "x")},
    {"no summary", changed("<summary>", "<x>@"), expected("summary", "x")},
    {"no subsections", changed("<subsections>", "<x>@"), expected("subsections", "x")},
    {"overwrite before element", changed("<summary>", "<x overwrite=' yes\t'>@"),
     notBool("yes", "overwrite", "x")},
};

const Row metricRows[] = {
    {"id", document("<reportMetric/>@"), missing("id", "reportMetric")},
    {"empty id", document("<reportMetric id='' displayName='B'/>"), silent},
    {"name before colour", document("<reportMetric id='b' colour='no'/>@"),
     missing("displayName", "reportMetric")},
    {"empty name", document("<reportMetric id='b' displayName=''/>"), silent},
    {"colour before type", metric("colour='rgb(256,0,0)' type='no'/>@"),
     "Invalid red component '256' in the colour string 'rgb(256,0,0)'. Expected a value in the "
     "range 0-255."},
    {"type before version", metric("type='String' corvaneMetricVersion='x'/>@"),
     "Unrecognised value for attribute 'type' for 'reportMetric' element: 'String'. Expected one "
     "of: 'string', 'boolean', 'integer', 'double'."},
    {"units of a string", metric("type='string' units=''/>@"),
     "A 'reportMetric' element of type 'string' should not contain a 'units' attribute"},
    {"version before source", metric("corvaneMetricVersion='1.0' source=''/>@"),
     notInt("1.0", "corvaneMetricVersion", "reportMetric")},
    {"empty source", metric("source=''/>"), silent},
    {"no details", metric("source='metric'/>@"), expected("sourceDetails", "reportMetric")},
    {"empty metricRef", metric("source='metric'><sourceDetails metricRef=''/>"), silent},
    {"sampleValue", metric("source='metric'><sourceDetails metricRef='m'/>@"),
     missingWord("sampleValue")},
    {"aggregation", metric("source='metric'><sourceDetails metricRef='m' sampleValue='sum'/>@"),
     missingWord("aggregation")},
    {"unknown sampleValue",
     metric("source='metric'><sourceDetails metricRef='m' sampleValue='Min' aggregation='min'/>"),
     silent},
    {"second details",
     metric("source='metric'><sourceDetails metricRef='m' sampleValue='min' aggregation='max'/>"
            "<sourceDetails/>@"),
     "Unexpected element 'sourceDetails'"},
    {"second of an id", document("\n<reportMetric id='a'/>@"),
     "There is already a metric with id=\"a\" in the <metrics> section of this file"},
    {"reserved before empty parts", document("<reportMetric id='corvane..x' displayName='B'/>@"),
     "The id=\"corvane..x\" is reserved."},
    {"longer id", document(u8"<reportMetric id='a.\u00e9' displayName='\u00e9'></reportMetric>@"),
     u8"Partial metric id name collision detected between \"a.\u00e9\" and \"a\"."},
    {"shorter id",
     metric("/><reportMetric id='c.d.e' displayName='C'/><reportMetric id='c.d' "
            "displayName='D'/>@"),
     "Partial metric id name collision detected between \"c.d\" and \"c.d.e\"."},
    {"empty part before collision", document("<reportMetric id='a..b' displayName='B'/>@"),
     "a..b contains empty parts."},
    {"stray child ends the section",
     metric("><x/></reportMetric>").replace("</reportMetrics>", "</reportMetrics>@"),
     expected("summary", "reportMetrics")},
    {"breakdown", metric("breakdownSubsection='s'/>").replace("</subsections>", "</subsections>@"),
     "No subsection has id=\"s\", required by the \"breakdownSubsection\" attribute of the \"b\" "
     "metric"},
};

const Row summaryRows[] = {
    {"no heading", changed("<heading/>", "<footer/>@"),
     "Expected start of 'heading' element (from within 'summary'), got 'footer'"},
    {"no entries", changed("<entry id='e' reportMetric='a'/>\n</summary>", "</summary>@"),
     "There are no <entry> elements in the <summary> section. A report must contain at least one "
     "metric and summary entry"},
    {"id", summary("<entry/>@"), missing("id", "entry")},
    {"empty id", summary("<entry id='' reportMetric='a'/>"), silent},
    {"metric before requires", summary("<entry id='f' requires='x.y'/>@"),
     missing("reportMetric", "entry")},
    {"requires before order", summary("<entry id='f' reportMetric='a' requires='!x.y' order=''/>@"),
     noMetric("x.y")},
    {"bare negation", summary("<entry id='f' reportMetric='a' requires='!'/>@"), noMetric("")},
    {"reserved before metric", summary("<entry id='com.corvane.f' reportMetric='x'>\n</entry>@"),
     "The id=\"com.corvane.f\" is reserved."},
    {"second entry before metric", summary("<entry id='e' reportMetric='x'/>@"),
     "There is already an entry with id=\"e\" in the <summary> section of this file"},
    {"built-in metric", summary("<entry id='f' reportMetric='version'/>@"), noMetric("version")},
};

const Row sectionRows[] = {
    {"overwrite of all", changed("<subsections>", "<subsections overwrite='TRUE'>@"),
     notBool("TRUE", "overwrite", "subsections")},
    {"overwrite before id", document({}, {}, "<subsection overwrite=''/>@"),
     notBool("", "overwrite", "subsection")},
    {"id", document({}, {}, "<subsection/>@"), missing("id", "subsection")},
    {"heading before colour", document({}, {}, "<subsection id='s' colour='no'/>@"),
     missing("heading", "subsection")},
    {"colour before requires", section("colour='abc(1,2,3)' requires='x'/>@"),
     "Invalid format prefix 'abc' in the colour string 'abc(1,2,3)'. Expected a prefix of 'rgb', "
     "'hsv', or 'hsl'."},
    {"requires before errorMetric", section("requires='x.y' errorMetric=''/>@"), noMetric("x.y")},
    {"errorMetric before order", section("errorMetric='z' order='x'/>@"), noMetric("z")},
    {"empty errorMetric", section("errorMetric=''/>"), silent},
    {"order before advice", section("order='1e1' maxAdviceStrings='x'/>@"),
     notInt("1e1", "order", "subsection")},
    {"much advice", section("maxAdviceStrings='1001'/>@"),
     "Attribute 'maxAdviceStrings' cannot be greater than 1000. Current value = 1001."},
    {"second of an id", section("/><subsection id='s'>\n</subsection>@"),
     "There is already a subsection with id=\"s\" in the <subsections> section of this file"},
    {"reserved", document({}, {}, "<subsection id='corvane.' heading='S'></subsection>@"),
     "The id=\"corvane.\" is reserved."},
};

const Row entryRows[] = {
    {"machineReadableOnly", section("><entry machineReadableOnly='no'/>@"),
     notBool("no", "machineReadableOnly", "entry")},
    {"metric", section("><entry unitPrefix='x'/>@"), missing("reportMetric", "entry")},
    {"unitPrefix before colour", section("><entry reportMetric='x' unitPrefix='SI' colour='x'/>@"),
     "Unrecognised value for attribute 'unitPrefix' for 'entry' element: 'SI'. Expected one of: "
     "'si', 'iec'."},
    {"colour before scale",
     section("><entry reportMetric='x' colour='hsl(0,101,0)' maxBarValue='x'/>@"),
     "Invalid saturation component '101' in the colour string 'hsl(0,101,0)'. Expected a value in "
     "the range 0-100."},
    {"scale before order", section("><entry reportMetric='x' maxBarValue='INF' order='x'/>@"),
     notDouble("INF")},
    {"minus infinity", section("><entry reportMetric='x' maxBarValue='-inf'/>@"),
     notDouble("-inf")},
    {"order before requires", section("><entry reportMetric='x' order=' ' requires='x.y'/>@"),
     notInt(" ", "order", "entry")},
    {"requires before metric", section("><entry reportMetric='x' requires='x.y'/>@"),
     noMetric("x.y")},
    {"metric after content", section("><entry reportMetric='x'><x/>\n</entry>@"), noMetric("x")},
    {"built-in metric", section("><entry reportMetric='overview.advice'/>@"),
     noMetric("overview.advice")},
    {"spacer's order", section("><spacer order='x' requires='x.y'/>@"),
     notInt("x", "order", "spacer")},
};

template <std::size_t count>
void expectRefused(const Row (&rows)[count])
{
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        const Loaded loaded = load(row.text);
        EXPECT_FALSE(loaded.definition);
        EXPECT_EQ(loaded.error.toStdString(), framed("Error", row.text, row.message));
    }
}

} // namespace

TEST(DefinitionReader, refusesRoots)
{
    expectRefused(rootRows);
}

TEST(DefinitionReader, refusesMetrics)
{
    expectRefused(metricRows);
}

TEST(DefinitionReader, refusesSummaries)
{
    expectRefused(summaryRows);
}

TEST(DefinitionReader, refusesSubsections)
{
    expectRefused(sectionRows);
    expectRefused(entryRows);
}

TEST(DefinitionReader, refusesWithoutAPlaceForTheMessage)
{
    const QByteArray xml = summaryRows[0].text.toUtf8();
    EXPECT_FALSE(ReportDefinition::load(xml, {}, {}, nullptr, 0, {}));
}
