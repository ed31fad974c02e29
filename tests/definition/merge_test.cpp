#include "definition/compiled_in_schema.h"
#include "definition/definition_text.h"
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

QString mergeDocument(ReportDefinition& definition, const QString& document, const QUrl& url = {},
                      const QString& schema = {})
{
    QString error = QStringLiteral("stale");
    const bool isMerged = definition.merge(document.toUtf8(), url, schema, &error, 0);
    EXPECT_EQ(isMerged, error.isEmpty()) << error.toStdString();
    return error;
}

QString merge(ReportDefinition& definition, const QString& content, const QString& name = "part")
{
    return mergeDocument(definition,
                         "<partialReport name='" + name + "'>" + content + "</partialReport>",
                         QUrl("file:///" + name + ".xml"));
}

QString metrics(const char* content)
{
    return QString("<reportMetrics>%1</reportMetrics>").arg(content);
}

QString sections(const char* content)
{
    return QString("<subsections>%1</subsections>").arg(content);
}

/// All that a merge can change, a record a line.
QString describe(const ReportDefinition& definition)
{
    const Summary summary = definition.summary();
    QStringList lines;
    for (const ReportMetric& metric : definition.metrics())
        lines += metricLine(metric);
    lines += summary.heading + ' ' + summary.footer;
    for (const SummaryEntry& entry : summary.entries)
        lines += entry.id + ':' + entry.reportMetric;
    for (const Subsection& subsection : definition.subsections())
        lines += subsectionLine(subsection);
    return lines.join('\n');
}

const QString x = "x heading=X colour=#ff0000 text=old errorMetric=t requires=a order=2 "
                  "advices=3 rows=a";
/// What changes in the description of the full definition.
const std::tuple<QString, QString, QString> changes[] = {
    {"<x/>" + metrics("<reportMetric id='b'/>"), "", ""},
    {"<subsections/><summary><entry id='e' reportMetric='a'/></summary>", "", ""},
    {metrics("<reportMetric id='a' displayName='B' units='m' colour='blue' type='double' "
             "corvaneMetricVersion='2' breakdownSubsection='y' source='metric'><sourceDetails "
             "metricRef='n' sampleValue='sum' aggregation='mean'/></reportMetric>"),
     "displayName=A units=s colour=#ff0000 type=Integer breakdown=x source=metric metricRef=m "
     "sampleValue=1 aggregation=2",
     "displayName=B units=m colour=#0000ff type=Integer breakdown=y source=metric metricRef=n "
     "sampleValue=4 aggregation=3"},
    {metrics("<reportMetric id='a' units='m'/><reportMetric id='a' displayName='B'/>"),
     "displayName=A units=s", "displayName=B units=m"},
    {metrics("<reportMetric id='t' units='m' source='internal'/>"), "displayName=T type=String",
     "displayName=T units=m type=String source=internal"},
    {metrics("<reportMetric id='b' displayName='B'/>") +
         "<summary><entry id='f' reportMetric='b'/><footer>G</footer><heading>I</heading>"
         "</summary>",
     "H F\ne:a", "b displayName=B type=Double\nH<br/>I F<br/>G\ne:a\nf:b"},
    {"<summary overwrite=' 1 '><entry id='e' reportMetric='t'/></summary>", "H F\ne:a", " \ne:t"},
    {sections("<subsection id='x' heading='Z' colour='blue' requires='!t' order='1' "
              "maxAdviceStrings='4'><text>n</text><text>ew</text><spacer/><entry "
              "reportMetric='t'/></subsection>"),
     x,
     "x heading=Z colour=#0000ff text=new errorMetric=t requires=!t order=1 advices=4 "
     "rows=a+spacer+t"},
    {sections("<subsection id='x' errorMetric='t' maxAdviceStrings='1' order='0'/>"), "", ""},
    {sections("<subsection id='x' overwrite='true' order='2'/>"), x, "x order=2 advices=1"},
    {sections("<subsection id='z' heading='Z' overwrite='true' order='3'/>"), x,
     x + "\nz heading=Z order=3 advices=1"},
    {"<subsections overwrite='true'><subsection id='x' heading='N'/></subsections>",
     "y heading=Y advices=1\n" + x, "x heading=N advices=1"},
};

} // namespace

TEST(Merge, changesWhatAPartialDocumentSays)
{
    for (const auto& [content, before, after] : changes) {
        SCOPED_TRACE(content.toStdString());
        const auto definition = fullDefinition();
        const QString old = describe(*definition);
        EXPECT_EQ(merge(*definition, content), "");
        EXPECT_TRUE(old.contains(before));
        EXPECT_EQ(describe(*definition), QString(old).replace(before, after));
        EXPECT_EQ(definition->logo() + definition->logoLink(), defaultLogo() + defaultLogoLink());
        int advices = 0;
        for (const Subsection& subsection : definition->subsections())
            advices += subsection.maxAdviceStrings;
        EXPECT_EQ(definition->maxAdviceStrings(), advices);
    }
}

TEST(Merge, refusesAndKeepsWhatCameBefore)
{
    const auto definition = fullDefinition();
    EXPECT_EQ(merge(*definition, {}, "first") + merge(*definition, {}, "a"), "");
    definition->setLogo("again.png");
    const QString change = metrics("<reportMetric id='n' displayName='N'/>"
                                   "<reportMetric id='a' units='m'/>");
    EXPECT_EQ(merge(*definition, change + "<summary><entry id='e' reportMetric='a'/></summary>"),
              "Error in file:///part.xml at line 1 column 169: There is already a non-identical "
              "entry with id=\"e\" in the <summary> section of this report, added from one of the "
              "following files:\n        full (file:///full.xml)\n        a (file:///a.xml)\n"
              "        first (file:///first.xml)\n");
    EXPECT_EQ(definition->partialReports().keys(), QStringList({"a", "first"}));
    EXPECT_EQ(definition->logo(), defaultLogo());
    EXPECT_TRUE(definition->hasMetric("n") && definition->metric("a").units == "m");
}

TEST(Merge, checksABreakdownOnceItsSubsectionsAreRead)
{
    const auto definition = fullDefinition();
    const QString pending =
        metrics("<reportMetric id='b' displayName='B' breakdownSubsection='w'/>");
    EXPECT_EQ(merge(*definition, pending), QString()) << "no subsections, no check";
    EXPECT_TRUE(merge(*definition, "<subsections/>").contains("No subsection has id=\"w\""));
    EXPECT_EQ(merge(*definition, sections("<subsection id='w' heading='W'/>")), QString());
    // Both are missing now; the first metric's is told.
    EXPECT_TRUE(
        merge(*definition, "<subsections overwrite='1'/>").contains("No subsection has id=\"x\""));
    const QString moved = metrics("<reportMetric id='a' breakdownSubsection='w'/>");
    EXPECT_EQ(merge(*definition, moved + sections("<subsection id='w' heading='W'/>")), QString());
}

TEST(Merge, refusesADocumentOfAnotherKindOrShape)
{
    const auto definition = fullDefinition();
    EXPECT_TRUE(mergeDocument(*definition, "<report name='r'/>")
                    .endsWith(": Expected 'partialReport' as the root element, got 'report'"));
    definition->setLogo("kept.png");
    EXPECT_TRUE(mergeDocument(*definition, "<partialReport/>")
                    .endsWith(": Missing string attribute 'name' for 'partialReport' element"));
    const QString bad = "<x xmlns=\"http://www.corvane.example/2016/CorvaneReports\"/>";
    EXPECT_TRUE(mergeDocument(*definition, bad, QUrl("u:x"), compiledInSchema())
                    .startsWith("u:x at line 1 "))
        << "no earlier message in front";
    EXPECT_EQ(definition->logo(), "kept.png") << "refused before anything is read";
    EXPECT_TRUE(definition->merge("<partialReport name='b'/>", QUrl("qrc:/x"), {}, nullptr, 0));
    EXPECT_EQ(definition->partialReports().value("b"), QUrl("qrc:/x"));
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
    const std::pair<QString, QString> rows[] = {
        {path, ""},
        {folder.filePath("none"), "File '%1' does not exist"},
        {folder.path(), "File '%1' could not be opened for reading"},
    };
    QString error = "stale";
    for (const auto& [name, message] : rows) {
        EXPECT_EQ(definition->mergeFile(name, compiledInSchema(), &error, 0), message.isEmpty());
        EXPECT_EQ(error, QString(message).replace("%1", name));
        EXPECT_FALSE(ReportDefinition::loadFile(name, {}, &error, 0, {}));
        EXPECT_EQ(definition->mergeFile(name, {}, nullptr, 0), message.isEmpty());
    }
    EXPECT_EQ(definition->partialReports().value("p"), QUrl::fromLocalFile(path));
    EXPECT_FALSE(ReportDefinition::loadFile(path, {}, &error, 0, {}));
    EXPECT_EQ(error.indexOf("Error in " + QUrl::fromLocalFile(path).toString() + " at line 1 "), 0);
}
