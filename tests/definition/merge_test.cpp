#include "definition/compiled_in_schema.h"
#include "definition/definition_text.h"
#include "definition/record_merging.h"
#include "definition/site_addresses.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <fstream>

using namespace vantrel;
using namespace vantrel::report;

namespace {

const QString full = QStringLiteral(
    "<report xmlns='urn:x' name='full' logo='own.png' logoLink='own'><reportMetrics>"
    "<reportMetric id='a' displayName='A' units='s' colour='red' type='integer' source='metric' "
    "breakdownSubsection='x'><sourceDetails metricRef='m' sampleValue='min' aggregation='max'/>"
    "</reportMetric><reportMetric id='t' displayName='T' type='string'/></reportMetrics>"
    "<summary><heading>H</heading><footer>F</footer><entry id='e' reportMetric='a'/></summary>"
    "<subsections><subsection id='x' heading='X' colour='red' requires='a' errorMetric='t' "
    "order='2' maxAdviceStrings='3'><text>old</text><entry reportMetric='a'/></subsection>"
    "<subsection id='y' heading='Y'/></subsections></report>");

std::unique_ptr<ReportDefinition> fullDefinition()
{
    Loaded loaded = load(full, QUrl("file:///full.xml"));
    EXPECT_TRUE(loaded.definition) << loaded.error.toStdString();
    return std::move(loaded.definition);
}

QString merge(ReportDefinition& definition, const QString& content,
              const QString& name = QStringLiteral("part"))
{
    QString error = QStringLiteral("stale");
    const QString text = "<partialReport name='" + name + "'>" + content + "</partialReport>";
    const bool isMerged =
        definition.merge(text.toUtf8(), QUrl("file:///" + name + ".xml"), QString(), &error, 0);
    EXPECT_EQ(isMerged, error.isEmpty()) << error.toStdString();
    return error;
}

/// All that a merge can change, a record a line.
QString describe(const ReportDefinition& definition)
{
    QStringList lines;
    for (const ReportMetric& metric : definition.metrics())
        lines += metricLine(metric);
    const Summary summary = definition.summary();
    lines += summary.heading + '|' + summary.footer;
    for (const SummaryEntry& entry : summary.entries)
        lines += entry.id + ':' + entry.reportMetric;
    for (const Subsection& subsection : definition.subsections())
        lines += subsectionLine(subsection);
    return lines.join('\n');
}

const QString metrics = "<reportMetrics>%1</reportMetrics>";
const QString sections = "<subsections>%1</subsections>";
const char* const metricA = "a|A|s|#ff0000|Integer|0|x|metric|m|1|2";
const char* const metricT = "t|T||none|String|0||||0|0";
const char* const sectionX = "x|X|#ff0000|old|t|a|2|3|a";
const char* const sectionY = "y|Y|none||||0|1|";

} // namespace

TEST(Merge, changesWhatAPartialDocumentSays)
{
    // before: what it replaces in the description of the full definition
    const std::tuple<QString, const char*, const char*> rows[] = {
        {"<x/>" + metrics.arg("<reportMetric id='b'/>"), "", ""},
        {"<subsections/><summary><entry id='e' reportMetric='a'/></summary>", "", ""},
        {metrics.arg("<reportMetric id='a'/>"), "", ""},
        {metrics.arg(
             "<reportMetric id='a' displayName='B' units='m' colour='blue' type='double' "
             "corvaneMetricVersion='2' breakdownSubsection='y' source='metric'><sourceDetails "
             "metricRef='n' sampleValue='sum' aggregation='mean'/></reportMetric>"),
         metricA, "a|B|m|#0000ff|Integer|0|y|metric|n|4|3"},
        {metrics.arg("<reportMetric id='a' units='m'/><reportMetric id='a' displayName='B'/>"),
         metricA, "a|B|m|#ff0000|Integer|0|x|metric|m|1|2"},
        {metrics.arg("<reportMetric id='t' units='m' source='internal'/>"), metricT,
         "t|T|m|none|String|0||internal||0|0"},
        {metrics.arg("<reportMetric id='b' displayName='B'/>") +
             "<summary><entry id='f' reportMetric='b'/><footer>G</footer><heading>I</heading>"
             "</summary>",
         "t|T||none|String|0||||0|0\nH|F\ne:a",
         "t|T||none|String|0||||0|0\nb|B||none|Double|0||||0|0\nH<br/>I|F<br/>G\ne:a\nf:b"},
        {"<summary overwrite=' 1 '><entry id='e' reportMetric='t'/></summary>", "H|F\ne:a",
         "|\ne:t"},
        {sections.arg("<subsection id='x' heading='Z' colour='blue' requires='!t' order='1' "
                      "maxAdviceStrings='4'><text>n</text><text>ew</text><spacer/><entry "
                      "reportMetric='t'/></subsection>"),
         sectionX, "x|Z|#0000ff|new|t|!t|1|4|a+spacer+t"},
        {sections.arg("<subsection id='x' errorMetric='t' maxAdviceStrings='1' order='0'/>"), "",
         ""},
        {sections.arg("<subsection id='x'><entry reportMetric='a'/></subsection>"), sectionX,
         "x|X|#ff0000|old|t|a|2|3|a+a"},
        {sections.arg("<subsection id='x' overwrite='true' order='2'/>"), sectionX,
         "x||none||||2|1|"},
        {sections.arg("<subsection id='z' heading='Z' overwrite='true' order='3'/>"), sectionX,
         "x|X|#ff0000|old|t|a|2|3|a\nz|Z|none||||3|1|"},
        {"<subsections overwrite='true'><subsection id='x' heading='N'/></subsections>",
         "y|Y|none||||0|1|\nx|X|#ff0000|old|t|a|2|3|a", "x|N|none||||0|1|"},
    };
    // Display order puts the subsection without an order first.
    const QString old =
        QStringList({metricA, metricT, "H|F", "e:a", sectionY, sectionX}).join('\n');
    for (const auto& [content, before, after] : rows) {
        SCOPED_TRACE(content.toStdString());
        const auto definition = fullDefinition();
        ASSERT_EQ(describe(*definition), old);
        EXPECT_EQ(merge(*definition, content), QString());
        ASSERT_TRUE(old.contains(before));
        EXPECT_EQ(describe(*definition), QString(old).replace(before, after));
        EXPECT_EQ(definition->partialReports().keys(), QStringList("part"));
        int advices = 0;
        for (const Subsection& subsection : definition->subsections())
            advices += subsection.maxAdviceStrings;
        EXPECT_EQ(definition->maxAdviceStrings(), advices);
    }
}

TEST(Merge, resetsTheBrandingAndRecordsTheSource)
{
    const auto definition = fullDefinition();
    ASSERT_EQ(definition->logo() + definition->logoLink(), "own.pngown");
    EXPECT_EQ(merge(*definition, {}, "b"), QString());
    EXPECT_EQ(merge(*definition, {}, "a"), QString());
    EXPECT_EQ(definition->logo(), defaultLogo());
    EXPECT_EQ(definition->logoLink(), defaultLogoLink());
    EXPECT_EQ(definition->describeSources(1).toStdString(),
              " full (file:///full.xml)\n a (file:///a.xml)\n b (file:///b.xml)\n");
    EXPECT_TRUE(definition->merge("<partialReport name='b'/>", QUrl("qrc:/x"), {}, nullptr, 0));
    EXPECT_EQ(definition->partialReports().value("b"), QUrl("qrc:/x"));
}

TEST(Merge, refusesAndKeepsWhatCameBefore)
{
    const std::pair<QString, QString> rows[] = {
        {"<summary><entry id='e' reportMetric='a'/></summary>",
         "There is already a non-identical entry with id=\"e\" in the <summary> section of this "
         "report, added from one of the following files:\n"
         "        full (file:///full.xml)\n        first (file:///first.xml)\n"},
        {"<summary overwrite='true'><heading>h</heading></summary>",
         "There are no <entry> elements in the <summary> section. A report must contain at least "
         "one metric and summary entry"},
        {sections.arg("<subsection id='z' heading='Z'/><subsection id='z' overwrite='1'/>"),
         "There is already a subsection with id=\"z\" in the <subsections> section of this file"},
        {sections.arg("<subsection id='z' overwrite='true'/>"),
         "Missing string attribute 'heading' for 'subsection' element"},
        {metrics.arg("<reportMetric id='a' breakdownSubsection='z'/>") + "<subsections/>",
         "No subsection has id=\"z\", required by the \"breakdownSubsection\" attribute of the "
         "\"a\" metric"},
    };
    for (const auto& [content, message] : rows) {
        SCOPED_TRACE(content.toStdString());
        const auto definition = fullDefinition();
        ASSERT_EQ(merge(*definition, {}, "first"), QString());
        definition->setLogo("again.png");
        const QString error = merge(*definition, content);
        EXPECT_TRUE(error.startsWith("Error in file:///part.xml at line 1 column "));
        EXPECT_EQ(error.mid(error.indexOf(": ") + 2), message);
        EXPECT_EQ(definition->partialReports().keys(), QStringList("first"));
        EXPECT_NE(definition->logo(), "again.png");
    }
    const auto definition = fullDefinition();
    merge(*definition, metrics.arg("<reportMetric id='n' displayName='N'/><reportMetric id='a' "
                                   "units='m'/><reportMetric id='t.u' displayName='U'/>"));
    EXPECT_TRUE(definition->hasMetric("n") && !definition->hasMetric("t.u"));
    EXPECT_EQ(definition->metric("a").units, "m");
}

TEST(Merge, checksABreakdownOnceItsSubsectionsAreRead)
{
    const auto definition = fullDefinition();
    const QString pending =
        metrics.arg("<reportMetric id='b' displayName='B' breakdownSubsection='w'/>");
    EXPECT_EQ(merge(*definition, pending), QString()) << "no subsections, no check";
    EXPECT_TRUE(merge(*definition, "<subsections/>").contains("No subsection has id=\"w\""));
    EXPECT_EQ(merge(*definition, sections.arg("<subsection id='w' heading='W'/>")), QString());
    // Both are missing now; the first metric's is told.
    EXPECT_TRUE(
        merge(*definition, "<subsections overwrite='1'/>").contains("No subsection has id=\"x\""));
    const QString moved = metrics.arg("<reportMetric id='a' breakdownSubsection='w'/>");
    EXPECT_EQ(merge(*definition, moved + sections.arg("<subsection id='w' heading='W'/>")),
              QString())
        << "nothing needs the old one";
}

TEST(Merge, refusesADocumentOfAnotherKindOrShape)
{
    const auto definition = fullDefinition();
    QString error;
    EXPECT_FALSE(definition->merge("<report name='r'/>", {}, {}, &error, 0));
    EXPECT_TRUE(error.endsWith(": Expected 'partialReport' as the root element, got 'report'"));
    EXPECT_FALSE(definition->merge("<partialReport/>", {}, {}, &error, 0));
    EXPECT_TRUE(error.endsWith(": Missing string attribute 'name' for 'partialReport' element"));
    definition->setLogo("kept.png");
    EXPECT_FALSE(definition->merge("<partialReport name='p'/>", {}, compiledInSchema(), &error, 0));
    EXPECT_TRUE(error.startsWith("The report definition XML does not have the attribute xmlns="));
    const char bad[] = "<x xmlns=\"http://www.corvane.example/2016/CorvaneReports\"/>";
    EXPECT_FALSE(definition->merge(bad, QUrl("u:x"), compiledInSchema(), &error, 0));
    EXPECT_TRUE(error.startsWith("u:x at line 1 ")) << "no earlier message in front";
    EXPECT_FALSE(ReportDefinition::load(bad, QUrl("u:x"), compiledInSchema(), &error, 0, {}));
    EXPECT_TRUE(error.startsWith("u:x at line 1 ")) << "no earlier message in front";
    EXPECT_EQ(definition->logo(), "kept.png") << "refused before anything is read";

    ReportMetric a = definition->metric("a");
    EXPECT_FALSE(mergeRecord(&a, definition->metric("t")));
    Subsection x = definition->subsection("x");
    EXPECT_FALSE(mergeRecord(&x, definition->subsection("y")));
    EXPECT_FALSE(definition->mergeMetric({}) || definition->mergeSubsection({}) ||
                 definition->replaceSubsection({}));
}

TEST(Merge, readsFiles)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath("part 1.xml");
    std::ofstream(path.toStdString())
        << "<partialReport xmlns=\"http://www.corvane.example/2016/CorvaneReports\" name=\"p\"/>";
    const auto definition = fullDefinition();
    QString error = "stale";
    EXPECT_TRUE(definition->mergeFile(path, compiledInSchema(), &error, 0)) << error.toStdString();
    EXPECT_EQ(definition->partialReports().value("p"), QUrl::fromLocalFile(path));
    const ReportIdScheme scheme;
    EXPECT_FALSE(ReportDefinition::loadFile(path, {}, &error, 0, scheme));
    EXPECT_TRUE(error.startsWith("Error in " + QUrl::fromLocalFile(path).toString() + " at line"));
    const std::pair<QString, QString> rows[] = {
        {folder.filePath("none"), "File '%1' does not exist"},
        {folder.path(), "File '%1' could not be opened for reading"},
    };
    for (const auto& [name, message] : rows) {
        EXPECT_FALSE(definition->mergeFile(name, {}, &error, 0));
        EXPECT_EQ(error, message.arg(name));
        EXPECT_FALSE(ReportDefinition::loadFile(name, {}, &error, 0, scheme));
        EXPECT_EQ(error, message.arg(name));
        EXPECT_FALSE(definition->mergeFile(name, {}, nullptr, 0));
    }
}
