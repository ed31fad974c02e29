#include "definition/definition_text.h"

#include <gtest/gtest.h>

using namespace vantrel::report;

namespace {

const QString missing = "Missing string attribute '%1' for '%2' element";
const QString missingWord = "Missing attribute '%1' for 'sourceDetails' element";
const QString notBool = "Invalid boolean value '%1' for '%2' attribute in '%3' element. "
                        "Expected 'true', 'false', '0' or '1'.";
const QString notInt = "Could not convert '%1' to an int in attribute '%2' for '%3' element";
const QString notDouble =
    "Could not convert '%1' to an double in attribute 'maxBarValue' for 'entry' element";
const QString notAWord =
    "Unrecognised value for attribute '%1' for '%2' element: '%3'. Expected one of: %4.";
const QString notAColour = "Invalid format prefix 'abc' in the colour string 'abc(1,2,3)'. "
                           "Expected a prefix of 'rgb', 'hsv', or 'hsl'.";
const QString expected = "Expected start of '%1' element, got '%2'";
const QString noMetric = "There is no metric with id=\"%1\" in this report";
const QString second = "There is already %1 with id=\"%2\" in the <%3> section of this file";
const QString reserved = "The id=\"%1\" is reserved.";
const QString unrecognised = "Unrecognised element '%1' in <%2>";
const QString notAString = "errorMetric attribute must refer to a string metric, but metric "
                           "\"%1\" is of type \"%2\"";
const QString silent;

struct Row {
    QString text;
    QString message;
    const char* kind = "Error";
    bool isRead = false;
};

const Row rows[] = {
    {"@", missing.arg("name", "")},
    {"<report name=''/>", silent},
    {"<partialReport name='r'>@", "Expected 'report' as the root element, got 'partialReport'"},
    {changed("<reportMetrics>", "<x>@"), expected.arg("reportMetrics", "x")},
    {changed("<summary>", "<x>@"), expected.arg("summary", "x")},
    {changed("<subsections>", "<x>@"), expected.arg("subsections", "x")},
    {changed("<summary>", "<x overwrite=' yes\t'>@"), notBool.arg("yes", "overwrite", "x")},
    {document("<reportMetric/>@"), missing.arg("id", "reportMetric")},
    {document("<reportMetric id='b' colour='no'/>@"), missing.arg("displayName", "reportMetric")},
    {metric("colour='abc(1,2,3)' type='no'/>@"), notAColour},
    {metric("type='String' corvaneMetricVersion='x'/>@"),
     notAWord.arg("type", "reportMetric", "String", "'string', 'boolean', 'integer', 'double'")},
    {metric("type='string' units=''/>@"),
     "A 'reportMetric' element of type 'string' should not contain a 'units' attribute"},
    {metric("corvaneMetricVersion='1.0' source=''/>@"),
     notInt.arg("1.0", "corvaneMetricVersion", "reportMetric")},
    {metric("source=''/>"), silent},
    {metric("source='metric'/>@"), expected.arg("sourceDetails", "reportMetric")},
    {metric("source='metric'><sourceDetails metricRef=''/>"), silent},
    {metric("source='metric'><sourceDetails metricRef='m'/>@"), missingWord.arg("sampleValue")},
    {metric("source='metric'><sourceDetails metricRef='m' sampleValue='sum'/>@"),
     missingWord.arg("aggregation")},
    {metric("source='metric'><sourceDetails metricRef='m' sampleValue='Min' aggregation='min'/>"),
     silent},
    {metric("source='metric'><sourceDetails metricRef='m' sampleValue='min' aggregation='max'/>"
            "<sourceDetails/>@"),
     "Unexpected element 'sourceDetails'"},
    {document("\n<reportMetric id='a'/>@"), second.arg("a metric", "a", "metrics")},
    {document("<reportMetric id='corvane..x' displayName='B'/>@"), reserved.arg("corvane..x")},
    {document("<reportMetric id='a.\u00e9' displayName='\u00e9'></reportMetric>@"),
     "Partial metric id name collision detected between \"a.\u00e9\" and \"a\"."},
    {document("<reportMetric id='b..c' displayName='B'/>@"), "b..c contains empty parts."},
    {metric("><x/></reportMetric>").replace("</reportMetrics>", "</reportMetrics>@"),
     expected.arg("summary", "reportMetrics")},
    {metric("breakdownSubsection='s'/>").replace("</subsections>", "</subsections>@"),
     "No subsection has id=\"s\", required by the \"breakdownSubsection\" attribute of the \"b\" "
     "metric"},
    {changed("<heading/>", "<footer/>@"),
     "Expected start of 'heading' element (from within 'summary'), got 'footer'"},
    {changed("<entry id='e' reportMetric='a'/>\n</summary>", "</summary>@"),
     "There are no <entry> elements in the <summary> section. A report must contain at least one "
     "metric and summary entry"},
    {summary("<entry/>@"), missing.arg("id", "entry")},
    {summary("<entry id='f' requires='x.y'/>@"), missing.arg("reportMetric", "entry")},
    {summary("<entry id='f' reportMetric='a' requires='!x.y' order=''/>@"), noMetric.arg("x.y")},
    {summary("<entry id='com.corvane.f' reportMetric='x'>\n</entry>@"),
     reserved.arg("com.corvane.f")},
    {summary("<entry id='e' reportMetric='x'/>@"), second.arg("an entry", "e", "summary")},
    {summary("<entry id='f' reportMetric='version'/>@"), noMetric.arg("version")},
    {changed("<subsections>", "<subsections overwrite='TRUE'>@"),
     notBool.arg("TRUE", "overwrite", "subsections")},
    {document({}, {}, "<subsection overwrite=''/>@"), notBool.arg("", "overwrite", "subsection")},
    {document({}, {}, "<subsection/>@"), missing.arg("id", "subsection")},
    {document({}, {}, "<subsection id='s' colour='no'/>@"), missing.arg("heading", "subsection")},
    {section("colour='abc(1,2,3)' requires='x'/>@"), notAColour},
    {section("requires='x.y' errorMetric=''/>@"), noMetric.arg("x.y")},
    {section("errorMetric='z' order='x'/>@"), noMetric.arg("z")},
    {section("errorMetric=''/>"), silent},
    {section("order='1e1' maxAdviceStrings='x'/>@"), notInt.arg("1e1", "order", "subsection")},
    {section("maxAdviceStrings='1001'/>@"),
     "Attribute 'maxAdviceStrings' cannot be greater than 1000. Current value = 1001."},
    {section("/><subsection id='s'>\n</subsection>@"),
     second.arg("a subsection", "s", "subsections")},
    {document({}, {}, "<subsection id='corvane.' heading='S'></subsection>@"),
     reserved.arg("corvane.")},
    {section("><entry machineReadableOnly='no'/>@"),
     notBool.arg("no", "machineReadableOnly", "entry")},
    {section("><entry unitPrefix='x'/>@"), missing.arg("reportMetric", "entry")},
    {section("><entry reportMetric='x' unitPrefix='SI' colour='x'/>@"),
     notAWord.arg("unitPrefix", "entry", "SI", "'si', 'iec'")},
    {section("><entry reportMetric='x' colour='abc(1,2,3)' maxBarValue='x'/>@"), notAColour},
    {section("><entry reportMetric='x' maxBarValue='INF' order='x'/>@"), notDouble.arg("INF")},
    {section("><entry reportMetric='x' maxBarValue='-inf'/>@"), notDouble.arg("-inf")},
    {section("><entry reportMetric='x' order=' ' requires='x.y'/>@"),
     notInt.arg(" ", "order", "entry")},
    {section("><entry reportMetric='x' requires='x.y'/>@"), noMetric.arg("x.y")},
    {section("><entry reportMetric='x'><x/>\n</entry>@"), noMetric.arg("x")},
    {section("><entry reportMetric='overview.advice'/>@"), noMetric.arg("overview.advice")},
    {section("><spacer order='x' requires='x.y'/>@"), notInt.arg("x", "order", "spacer")},
    // After these it goes on.
    {changed("</report>", ""), silent, "", true},
    {document("<reportMetric id='corvane' displayName='B'/>"
              "<reportMetric id='Corvane.x' displayName='B'/>"),
     silent, "", true},
    {document("<x>@<reportMetric/></x>"), unrecognised.arg("x", "reportMetric"), "Warning", true},
    {summary("<x/>@"), unrecognised.arg("x", "summary"), "Warning", true},
    {document({}, {}, "<x/><entry>@<y/></entry>"), unrecognised.arg("entry", "subsections"),
     "Warning", true},
    {section("><heading/>@</subsection>"), unrecognised.arg("heading", "subsection"), "Warning",
     true},
    {metric("type='boolean'/>")
         .replace("<subsections>\n",
                  "<subsections>\n<subsection id='s' heading='S' errorMetric='b'/>@"),
     notAString.arg("b", "Bool"), "Error", true},
    {section("errorMetric='applicationDetails.notes'/>@"),
     notAString.arg("applicationDetails.notes", "Double"), "Error", true},
    {section("errorMetric='a' maxAdviceStrings='-1'/>@"),
     "Attribute 'maxAdviceStrings' cannot be negative. Current value = -1.", "Error", true},
};

} // namespace

TEST(DefinitionReader, refuses)
{
    for (const Row& row : rows) {
        SCOPED_TRACE(row.text.toStdString());
        const Loaded loaded = load(row.text);
        EXPECT_EQ(bool(loaded.definition), row.isRead);
        EXPECT_EQ(loaded.error.toStdString(), framed(row.kind, row.text, row.message));
        EXPECT_TRUE(!row.isRead || loaded.definition->hasSummaryEntries());
    }
}
