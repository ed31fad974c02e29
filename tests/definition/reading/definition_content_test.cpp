#include "definition/definition_text.h"
#include "definition/site_addresses.h"

#include <QThread>

#include <gtest/gtest.h>

using namespace vantrel;
using namespace vantrel::report;

namespace {

QString repeated(const char* text, int count)
{
    return QString::fromLatin1(text).repeated(count);
}

} // namespace

TEST(DefinitionContent, keepsMarkupAsText)
{
    const std::pair<const char*, const char*> rows[] = {
        {"", ""},
        {"a <b class='x&amp;&quot;'>b<b/></b>\n", "a <b class=\"x&amp;&quot;\">b<b/></b>\n"},
        {"&lt;b&gt; &amp;amp; <![CDATA[<i>&</i>]]>", "&lt;b&gt; &amp;amp; <![CDATA[<i>&</i>]]>"},
        {"<!-- c --><?do this?><h:b xmlns:h='urn:h'/>", "<!-- c --><?do this?><h:b/>"},
        {"<description>d</description><text/>", "<description>d</description><text/>"},
    };
    for (const auto& [given, kept] : rows) {
        SCOPED_TRACE(given);
        const QString text =
            document({},
                     "<footer>%1</footer><entry id='f' reportMetric='a'><description>%1"
                     "</description><description>no</description></entry>",
                     "<subsection id='s' heading='S'><text>%1</text><spacer><description>%1"
                     "</description></spacer><text>%1|</text></subsection>");
        const Loaded loaded = load(text.arg(given));
        ASSERT_TRUE(loaded.definition) << loaded.error.toStdString();
        const Summary summary = loaded.definition->summary();
        const Subsection section = loaded.definition->subsection("s");
        const QStringList read({summary.footer, summary.entries.at(1).description,
                                section.entries.at(0).description, section.text});
        EXPECT_EQ(read.join('\n'), QString("%1\n%1\n%1\n%1%1|").arg(kept));
    }
}

TEST(DefinitionContent, readsEveryAttribute)
{
    const Loaded loaded = load(document(
        "<reportMetric id='b.c' displayName='B' units='%' colour='red' type='integer' "
        "corvaneMetricVersion='2' breakdownSubsection='s' source='metric'><sourceDetails "
        "metricRef='m' sampleValue='mean' aggregation='max'><x/></sourceDetails></reportMetric>"
        "<reportMetric id='d' displayName='D' type='string' corvaneMetricVersion='4' "
        "source='internal'><sourceDetails sampleValue='x'/></reportMetric>",
        "<entry id='f' reportMetric='b.c' chartLabel='L' requires='!version' order='-1'>"
        "<x><description>no</description></x><description>no</description></entry>"
        "<heading>One</heading><footer>x</footer><heading>Two</heading>",
        "<subsection id='s' heading='S' colour='#0f0' requires='d' errorMetric='d' order='7' "
        "maxAdviceStrings='1000' overwrite='false'><entry machineReadableOnly='true' "
        "reportMetric='b.c' unitPrefix='iec' displayName='N' colour='blue' group='g' "
        "maxBarValue='1.5e3' order='2' requires='b.c'/><spacer order='3' requires='!a' "
        "reportMetric='?' colour='?'/><entry reportMetric='a' colour='' "
        "machineReadableOnly='0' maxBarValue='+inf'/></subsection>"));
    ASSERT_TRUE(loaded.definition) << loaded.error.toStdString();
    EXPECT_EQ(loaded.error, QString());
    const ReportDefinition& read = *loaded.definition;
    EXPECT_EQ(read.name() + read.logo() + read.logoLink(),
              "r" + defaultLogoPrefix() + "-50.png" + defaultLogoLink());
    const Loaded own = load(changed("name='r'", "name='r' logo='l' logoLink=''"));
    EXPECT_EQ(own.definition->logo() + own.definition->logoLink(), "l" + defaultLogoLink());

    const SummaryEntry shown = read.summary().entries.first();
    QStringList lines{metricLine(read.metric("b.c")), metricLine(read.metric("d")),
                      recordLine(read.summary().heading,
                                 "id reportMetric chartLabel description requires order",
                                 {shown.id, shown.reportMetric, shown.chartLabel, shown.description,
                                  shown.requirement, shown.order}),
                      subsectionLine(read.subsection("s"))};
    for (const SubsectionEntry& entry : read.subsection("s").entries) {
        lines += recordLine(entry.reportMetric,
                            "displayName colour group requires order unitPrefix maxBarValue "
                            "machineReadableOnly",
                            {entry.displayName, colourName(entry.colour), entry.group,
                             entry.requirement, entry.order, int(entry.unitPrefix),
                             hasMaxBarValue(entry) ? entry.maxBarValue : 0,
                             int(entry.machineReadableOnly)});
    }
    EXPECT_EQ(lines.join('\n'),
              "b.c displayName=B units=% colour=#ff0000 type=Integer version=2 breakdown=s "
              "source=metric metricRef=m sampleValue=3 aggregation=2\n"
              "d displayName=D type=String source=internal\n"
              "One<br/>Two id=f reportMetric=b.c chartLabel=L requires=!version order=-1\n"
              "s heading=S colour=#00ff00 errorMetric=d requires=d order=7 advices=1000 "
              "rows=b.c+spacer+a\n"
              "b.c displayName=N colour=#0000ff group=g requires=b.c order=2 unitPrefix=1 "
              "maxBarValue=1500 machineReadableOnly=1\n requires=!a order=3\na");
}

TEST(DefinitionContent, hasLimitsOfIdsAndRecords)
{
    const QString withId = document("<reportMetric id='%1' displayName='B'/>@");
    const QString longest = "b" + repeated(".b", 199);
    EXPECT_TRUE(load(withId.arg(longest)).definition);
    EXPECT_TRUE(load(withId.arg(longest + ".b"))
                    .error.endsWith("The id=\"" + longest + ".b\" has more than 200 parts."));

    QString sections;
    for (int i = 0; i < 100; ++i)
        sections += QString("<subsection id='s%1' heading='S' maxAdviceStrings='1000'/>").arg(i);
    EXPECT_TRUE(load(document({}, {}, sections)).definition);
    sections += "<subsection id='one' heading='more'/>";
    EXPECT_TRUE(
        load(document({}, {}, sections))
            .error.endsWith("The subsections have more than 100000 advice strings together."));
}

TEST(DefinitionContent, hasALimitOfAttributes)
{
    QString thousand = "<x b='a=a>'";
    for (int i = 2; i <= 1000; ++i)
        thousand += QString(" a%1=''").arg(i);
    const QString more = document(thousand + " c=''/@>");
    const auto declared = [](const QString& subset, const QString& text = document("<x/@>")) {
        return "<!DOCTYPE report [" + subset + "]>" + text;
    };
    const std::pair<QString, bool> rows[] = {
        {document("<!-- " + repeated("a='' ", 2000) + "-->" + thousand + "/>"), true},
        {more, false},
        {declared("<!-- it's -->", more), false},
        {declared("<?x it's ?>", more), false},
        {declared("<!ENTITY e \"it's <\">", more), false},
        {declared("<!ATTLIST x " + repeated("a CDATA '' ", 400) + ">"), true},
        {declared("<!ATTLIST x " + repeated("a CDATA '' ", 501) + ">"), false},
        {declared(repeated("<!ATTLIST x a CDATA #IMPLIED>", 1001)), false},
    };
    for (const auto& [text, isRead] : rows) {
        const Loaded loaded = load(text);
        EXPECT_EQ(bool(loaded.definition), isRead) << text.left(60).toStdString();
        EXPECT_EQ(loaded.error.endsWith("An element has more than 1000 attributes"), !isRead);
    }
    EXPECT_EQ(load(more).error.toStdString(),
              framed("Error", more, "An element has more than 1000 attributes"));
}

TEST(DefinitionContent, isReadOnASmallStack)
{
    const int depth = 100000;
    const QString markup = repeated("<b>", depth) + "x" + repeated("</b>", depth);
    const QString text = document("<x>" + markup + "</x>", "<footer>" + markup + "</footer>");
    Loaded loaded;
    const std::unique_ptr<QThread> thread(QThread::create([&] { loaded = load(text); }));
    thread->setStackSize(256 * 1024);
    thread->start();
    thread->wait();
    ASSERT_TRUE(loaded.definition);
    EXPECT_TRUE(loaded.definition->summary().footer == markup);
}
