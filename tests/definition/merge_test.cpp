#include "definition/definition_text.h"
#include "definition/record_merging.h"
#include "definition/schema_file.h"

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
    const QUrl url(QStringLiteral("file:///full.xml"));
    Loaded loaded = load(full, url);
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

QString colourName(const QColor& colour)
{
    return colour.isValid() ? colour.name() : QStringLiteral("none");
}

QString metricLine(const ReportMetric& m)
{
    const QStringList texts({m.id, m.displayName, m.units, colourName(m.colour),
                             metricTypeName(m.type), QString::number(m.corvaneMetricVersion),
                             m.breakdownSubsection, m.source, m.metricRef});
    return QString("%1|%2|%3").arg(texts.join('|')).arg(m.sampleValue).arg(m.aggregation);
}

QString subsectionLine(const Subsection& s)
{
    QStringList rows;
    for (const SubsectionEntry& entry : s.entries)
        rows += entry.isSpacer ? QStringLiteral("spacer") : entry.reportMetric;
    const QStringList texts(
        {s.id, s.heading, colourName(s.colour), s.text, s.errorMetric, s.requires});
    return QString("%1|%2|%3|%4")
        .arg(texts.join('|'))
        .arg(s.order)
        .arg(s.maxAdviceStrings)
        .arg(rows.join('+'));
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

struct Change {
    const char* name;
    QString content;
    const char* before; ///< what the change replaces in the description of the full definition
    const char* after;
};

QString metrics(const char* content)
{
    return QStringLiteral("<reportMetrics>%1</reportMetrics>").arg(content);
}

QString summaryOf(const char* content, const char* attributes = "")
{
    return QStringLiteral("<summary %1>%2</summary>").arg(attributes, content);
}

QString sections(const char* content, const char* attributes = "")
{
    return QStringLiteral("<subsections %1>%2</subsections>").arg(attributes, content);
}

const char* const metricA = "a|A|s|#ff0000|Integer|0|x|metric|m|1|2";
const char* const metricT = "t|T||none|String|0||||0|0";
const char* const sectionX = "x|X|#ff0000|old|t|a|2|3|a";
const char* const sectionY = "y|Y|none||||0|1|";

const Change changes[] = {
    {"nothing", {}, "", ""},
    {"a stranger ends the reading", "<x/>" + metrics("<reportMetric id='b'/>"), "", ""},
    {"sections out of order aren't read",
     sections("") + summaryOf("<entry id='e' reportMetric='a'/>"), "", ""},
    {"an empty element changes nothing", metrics("<reportMetric id='a'/>"), "", ""},
    {"a metric takes what is given",
     metrics("<reportMetric id='a' displayName='B' units='m' colour='blue' type='double' "
             "corvaneMetricVersion='2' breakdownSubsection='y' source='metric'><sourceDetails "
             "metricRef='n' sampleValue='sum' aggregation='mean'/></reportMetric>"),
     metricA, "a|B|m|#0000ff|Integer|0|y|metric|n|4|3"},
    {"twice in one file",
     metrics("<reportMetric id='a' units='m'/><reportMetric id='a' "
             "displayName='B'/>"),
     metricA, "a|B|m|#ff0000|Integer|0|x|metric|m|1|2"},
    {"units of a string metric", metrics("<reportMetric id='t' units='m'/>"), metricT,
     "t|T|m|none|String|0||||0|0"},
    {"a new metric", metrics("<reportMetric id='b' displayName='B'/>"), metricT,
     "t|T||none|String|0||||0|0\nb|B||none|Double|0||||0|0"},
    {"a summary is appended",
     metrics("<reportMetric id='b' displayName='B'/>") +
         summaryOf("<entry id='f' reportMetric='b'/><footer>G</footer><heading>I</heading>"),
     "t|T||none|String|0||||0|0\nH|F\ne:a",
     "t|T||none|String|0||||0|0\nb|B||none|Double|0||||0|0\nH<br/>I|F<br/>G\ne:a\nf:b"},
    {"a summary is replaced", summaryOf("<entry id='e' reportMetric='t'/>", "overwrite='1'"),
     "H|F\ne:a", "|\ne:t"},
    {"a subsection takes what is given",
     sections("<subsection id='x' heading='Z' colour='blue' requires='!t' order='1' "
              "maxAdviceStrings='4'><text>n</text><text>ew</text><spacer/><entry "
              "reportMetric='t'/></subsection>"),
     sectionX, "x|Z|#0000ff|new|t|!t|1|4|a+spacer+t"},
    {"an empty subsection changes nothing",
     sections("<subsection id='x' errorMetric='t' maxAdviceStrings='1' order='0'/>"), "", ""},
    {"a row may end up twice",
     sections("<subsection id='x'><entry reportMetric='a'/></subsection>"), sectionX,
     "x|X|#ff0000|old|t|a|2|3|a+a"},
    {"a subsection is replaced", sections("<subsection id='x' overwrite='true' order='2'/>"),
     sectionX, "x||none||||2|1|"},
    {"an unknown subsection is appended",
     sections("<subsection id='z' heading='Z' overwrite='true' order='3'/>"), sectionX,
     "x|X|#ff0000|old|t|a|2|3|a\nz|Z|none||||3|1|"},
    {"subsections are replaced", sections("<subsection id='x' heading='N'/>", "overwrite='true'"),
     "y|Y|none||||0|1|\nx|X|#ff0000|old|t|a|2|3|a", "x|N|none||||0|1|"},
};

} // namespace

TEST(Merge, changesWhatAPartialDocumentSays)
{
    // Display order puts the subsection without an order first.
    const QString before =
        QStringList{metricA, metricT, "H|F", "e:a", sectionY, sectionX}.join('\n');
    for (const Change& change : changes) {
        SCOPED_TRACE(change.name);
        const auto definition = fullDefinition();
        ASSERT_EQ(describe(*definition).toStdString(), before.toStdString());
        EXPECT_EQ(merge(*definition, change.content), QString());
        QString expected = before;
        if (*change.before)
            expected.replace(change.before, change.after);
        EXPECT_EQ(describe(*definition).toStdString(), expected.toStdString());
        EXPECT_EQ(expected == before, !*change.before);
        EXPECT_EQ(definition->partialReports().keys(), QStringList("part"));
    }
}

TEST(Merge, resetsTheBrandingAndRecordsTheSource)
{
    const auto definition = fullDefinition();
    ASSERT_EQ(definition->logo(), "own.png");
    EXPECT_EQ(merge(*definition, {}, "b"), QString());
    EXPECT_EQ(merge(*definition, {}, "a"), QString());
    EXPECT_EQ(definition->name(), "full");
    EXPECT_EQ(definition->url(), QUrl("file:///full.xml"));
    EXPECT_EQ(definition->logo(), load(document({})).definition->logo());
    EXPECT_EQ(definition->logoLink(), load(document({})).definition->logoLink());
    EXPECT_EQ(definition->describeSources(1).toStdString(),
              " full (file:///full.xml)\n a (file:///a.xml)\n b (file:///b.xml)\n");
    EXPECT_TRUE(definition->merge("<partialReport name='b'/>", QUrl("qrc:/x"), {}, nullptr, 0));
    EXPECT_EQ(definition->partialReports().value("b"), QUrl("qrc:/x"));
}

namespace {

const char* const sources = "        full (file:///full.xml)\n        first (file:///first.xml)\n";

struct Refusal {
    const char* name;
    QString content;
    QString message;
};

const Refusal refusals[] = {
    {"entry of an earlier file", summaryOf("<entry id='e' reportMetric='a'/>"),
     QStringLiteral("There is already a non-identical entry with id=\"e\" in the <summary> section "
                    "of this report, added from one of the following files:\n") +
         sources},
    {"entry of this file",
     summaryOf("<entry id='f' reportMetric='a'/><entry id='f' reportMetric='a'/>"),
     "There is already an entry with id=\"f\" in the <summary> section of this file"},
    {"no entry is left", summaryOf("<heading>h</heading>", "overwrite='true'"),
     "There are no <entry> elements in the <summary> section. A report must contain at least one "
     "metric and summary entry"},
    {"metric of this file",
     metrics("<reportMetric id='b' displayName='B'/><reportMetric id='b' displayName='B'/>"),
     "There is already a metric with id=\"b\" in the <metrics> section of this file"},
    {"new metric below an old one", metrics("<reportMetric id='a.b' displayName='B'/>"),
     "Partial metric id name collision detected between \"a.b\" and \"a\"."},
    {"reserved", metrics("<reportMetric id='corvane.b' displayName='B'/>"),
     "The id=\"corvane.b\" is reserved."},
    {"subsection of this file",
     sections("<subsection id='z' heading='Z'/><subsection id='z' overwrite='1'/>"),
     "There is already a subsection with id=\"z\" in the <subsections> section of this file"},
    {"new subsection without a heading", sections("<subsection id='z' overwrite='true'/>"),
     "Missing string attribute 'heading' for 'subsection' element"},
    {"breakdown of an earlier file",
     sections("<subsection id='z' heading='Z'/>", "overwrite='true'"),
     "No subsection has id=\"x\", required by the \"breakdownSubsection\" attribute of the \"a\" "
     "metric"},
    {"breakdown of this file",
     metrics("<reportMetric id='a' breakdownSubsection='z'/>") + sections(""),
     "No subsection has id=\"z\", required by the \"breakdownSubsection\" attribute of the \"a\" "
     "metric"},
};

} // namespace

TEST(Merge, refusesAndKeepsWhatCameBefore)
{
    for (const Refusal& refusal : refusals) {
        SCOPED_TRACE(refusal.name);
        const auto definition = fullDefinition();
        ASSERT_EQ(merge(*definition, metrics("<reportMetric id='n' displayName='N'/>"), "first"),
                  QString());
        definition->setLogo("again.png");
        const QString error = merge(*definition, refusal.content);
        EXPECT_TRUE(error.startsWith("Error in file:///part.xml at line 1 column "));
        EXPECT_EQ(error.mid(error.indexOf(": ") + 2).toStdString(), refusal.message.toStdString());
        EXPECT_EQ(definition->partialReports().keys(), QStringList("first"));
        EXPECT_NE(definition->logo(), "again.png");
    }
    const auto definition = fullDefinition();
    merge(*definition, metrics("<reportMetric id='n' displayName='N'/><reportMetric id='a' "
                               "units='m'/><reportMetric id='t.u' displayName='U'/>"));
    EXPECT_TRUE(definition->hasMetric("n") && !definition->hasMetric("t.u"));
    EXPECT_EQ(definition->metric("a").units, "m");
}

TEST(Merge, checksABreakdownOnceItsSubsectionsAreRead)
{
    const auto definition = fullDefinition();
    const QString pending =
        metrics("<reportMetric id='b' displayName='B' breakdownSubsection='z'/>");
    EXPECT_EQ(merge(*definition, pending), QString()) << "no subsections, no check";
    EXPECT_TRUE(merge(*definition, sections("")).contains("No subsection has id=\"z\""));
    EXPECT_EQ(merge(*definition, sections("<subsection id='z' heading='Z'/>")), QString());
    EXPECT_TRUE(
        merge(*definition, sections("", "overwrite='1'")).contains("No subsection has id=\"x\""));
}

TEST(Merge, refusesADocumentOfAnotherKindOrShape)
{
    const auto definition = fullDefinition();
    const std::pair<const char*, const char*> rows[] = {
        {"<report name='r'/>", "Expected 'partialReport' as the root element, got 'report'"},
        {"<partialReport/>", "Missing string attribute 'name' for 'partialReport' element"},
    };
    for (const auto& [text, message] : rows) {
        QString error;
        EXPECT_FALSE(definition->merge(text, {}, {}, &error, 0));
        EXPECT_TRUE(error.endsWith(message)) << error.toStdString();
    }
    QString error;
    definition->setLogo("kept.png");
    EXPECT_FALSE(definition->merge("<partialReport name='p'/>", {}, compiledInSchema(), &error, 0));
    EXPECT_TRUE(error.startsWith("The report definition XML does not have the attribute xmlns="));
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
