#include "definition/schema/schema_documents.h"

#include <QDir>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QThread>

#include <memory>

using namespace vantrel::report;

namespace {

QByteArray nested(int levels, const QByteArray& core = "x")
{
    const int more = levels - 3;
    return markup(QByteArray("<b>").repeated(more) + core + QByteArray("</b>").repeated(more));
}

} // namespace

TEST(SchemaValidation, acceptsAndRefusesWhatItShould)
{
    const QByteArray metric = "<reportMetric id=\"a.b\"";
    const QByteArray entry = "<entry reportMetric=\"a.b\"/>";
    const QByteArray details = "<sourceDetails metricRef='' aggregation='min' sampleValue='sum'/>";
    const auto part = [](const QByteArray& content) {
        return "<partialReport xmlns=\"http://www.corvane.example/2016/CorvaneReports\" name=''" +
               content + "</partialReport>";
    };
    const auto metricWith = [&](const QByteArray& more) { return document(metric, metric + more); };
    const auto entryWith = [&](const QByteArray& more) {
        return document(entry, QByteArray(entry).insert(6, ' ' + more));
    };
    const QByteArray lenient =
        QByteArray("<report xmlns=\"http://www.corvane.example/2016/CorvaneReports\" name='' "
                   "logo='%' logoLink=''><reportMetrics><reportMetric id='a..b' type='string' "
                   "units='' breakdownSubsection='gone' colour='no colour' source='metric'/>"
                   "</reportMetrics><summary/><subsections><subsection id='s' heading='' "
                   "overwrite=' 1 ' errorMetric='x' requires='!no such' maxAdviceStrings='0' "
                   "order='-5'><entry reportMetric='gone' maxBarValue='-1.50' unitPrefix='iec' "
                   "machineReadableOnly='1' group=''/></subsection></subsections></report>");
    const std::pair<QByteArray, bool> rows[] = {
        {lenient, true},
        {document(" name=\"r\"", ""), false},
        {document("<summary>", "<summary overwrite='false'>"), false},
        {document("<summary>", "<x/><summary>"), false},
        {document("<heading>h</heading><footer/>", "<footer/><heading>h</heading>"), false},
        {document("<summary>", "<summary>x"), false},
        {part(" logo=''>"), false},
        {part("><summary overwrite='true'/><subsections overwrite='0'/>"), true},
        {part("><subsections/><summary/>"), false},
        {document(" id=\"s\"", ""), false},
        {document("id=\"a.b\"", "id=\"a:b\""), false},
        {metricWith(" type=' string'"), false},
        {metricWith(" source='other'"), false},
        {document("displayName=\"A\"/>", ">" + details + details + "</reportMetric>"), false},
        {document("displayName=\"A\"/>", "><sourceDetails metricRef=''/></reportMetric>"), false},
        {document("<subsection ", "<subsection maxAdviceStrings='-1' "), false},
        {document("<spacer/>", "<text/>"), false},
        {document("<spacer/>", "<spacer order='2147483648'/>"), false},
        {entryWith("maxBarValue='1e3'"), false},
        {entryWith("unitPrefix='SI'"), false},
        {entryWith("chartLabel='x'"), false},
        {markup("a<p b='1'>c<em>d</em></p><h1/><ul><li>e<ol><li/></ol></li></ul>"
                "<div><blockquote> x <p/></blockquote></div><pre>a<a/><tt><b/></tt></pre>"
                "<a href='x'/><img src='x' alt='y'/><br clear='all'/>"),
         true},
        {markup("<a href='x'>text</a>"), false},
        {markup("<ul>x<li/></ul>"), false},
        {markup("<p><p/></p>"), false},
        {markup("<blockquote><b/></blockquote>"), false},
        {markup("<pre><img/></pre>"), false},
        {markup("<pre class='c'/>"), false},
        {markup("<script/>"), false},
        {markup("<b xmlns=''/>"), false},
        {markup("<b x:y=''/>"), false},
        {markup("&nbsp;"), false},
        {markup("<![CDATA[<x>]]><!-- <x> --><?x <y> ?>&#8364;&amp;"), true},
        {"<p xmlns=\"http://www.corvane.example/2016/CorvaneReports\"/>", true},
    };
    for (const auto& [xml, accepted] : rows) {
        const Verdict verdict = validate(xml);
        EXPECT_EQ(verdict.accepted, accepted) << xml.constData() << verdict.error.toStdString();
        EXPECT_EQ(verdict.error.isEmpty(), accepted) << xml.constData();
        EXPECT_EQ(qtAccepts(xml), accepted) << xml.constData();
        EXPECT_EQ(schemaAccepts(xml), accepted) << xml.constData();
    }
}

TEST(SchemaValidation, tellsWhatIsWrong)
{
    const LeaksOfQt leaks;
    const QByteArray space = "xmlns=\"http://www.corvane.example/2016/CorvaneReports\"";
    const auto noNamespace = [&](const char* location) {
        return "The report definition XML" + QByteArray(location) +
               " does not have the attribute " + space +
               " set in the <report> or <partialReport> element.";
    };
    const QTemporaryDir folder;
    const QString folderPath = folder.path();
    const QString nowhere = folder.filePath("%2/no such.xsd");
    const QString file = folder.filePath("a%2.xsd");
    const QByteArray own = contentOf(compiledInSchema());
    const QByteArray unmarked = QByteArray(own)
                                    .replace("<!-- Begin unique ID constraints -->", "")
                                    .replace("<!-- End unique ID constraints -->", "");
    const QByteArray twice = document("<reportMetrics>", "<reportMetrics><reportMetric id='a.b'/>");
    const struct {
        QByteArray xml;
        QString schema;
        QUrl url;
        QString message;         ///< "*" stands for Qt's own words
        QByteArray content = {}; ///< of the schema's file, which is read anew at each call
    } rows[] = {
        {document("xmlns=", "xmlns:r="), nowhere, QUrl("a%20b"), noNamespace(" a b")},
        {document(space, QByteArray(space).replace('"', '\'')), nowhere, QUrl(), noNamespace("")},
        {"<!-- " + space + " -->" + document(space, ""), compiledInSchema(), place,
         "file:///d/r.xml at line 1 column *. No definition for element report available."},
        {twice, nowhere, place, "Schema file '" + nowhere + "' does not exist"},
        {twice, folderPath, place,
         "Schema file '" + folderPath + "' could not be opened for reading"},
        {document("<spacer/>", "\n <x/>"), compiledInSchema(), place,
         "file:///d/r.xml at line 5 column *. *x is not defined in this scope."},
        {document("</report>", ""), compiledInSchema(), QUrl("http://h/100%25"),
         "http://h/100%25 at line 5 column *. *"},
        {twice, file, place, "", own},
        {twice, file, place, "file:///d/r.xml at line *", unmarked},
        {twice, file, place, "Schema file '" + file + "' is not valid", "<x"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.message.toStdString());
        if (!row.content.isNull())
            writeFile(file, row.content);
        testing::internal::CaptureStderr();
        const Verdict verdict = validate(row.xml, row.schema, row.url);
        EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
        const QString pattern = QRegularExpression::escape(row.message).replace("\\*", ".+");
        EXPECT_TRUE(QRegularExpression("\\A" + pattern + "\\z").match(verdict.error).hasMatch())
            << verdict.error.toStdString();
        EXPECT_EQ(verdict.accepted, row.message.isEmpty());
        EXPECT_EQ(validateDefinition(row.xml, row.url, row.schema, nullptr, 0), verdict.accepted);
    }
}

TEST(SchemaValidation, chainsMessagesAndTakesTheirTextOnly)
{
    QString inner;
    QString outer = "before";
    MessageHandler last(&inner, nullptr);
    MessageHandler silent(nullptr, &last);
    MessageHandler first(&outer, &silent);
    first.message(QtWarningMsg, "<html><p>a<b>&lt;%1</b><br/>b</p></html>", QUrl(),
                  QSourceLocation(QUrl("u:%252"), 3, 4));
    EXPECT_EQ(inner.toStdString(), "u:%252 at line 3 column 4. a<%1b");
    EXPECT_EQ(outer, "before\n\n" + inner);

    testing::internal::CaptureStderr();
    EXPECT_FALSE(
        validateDefinition(document("<spacer/>", "<x/>"), place, compiledInSchema(), &outer, 1));
    EXPECT_NE(testing::internal::GetCapturedStderr().find("is not defined"), std::string::npos);
    EXPECT_TRUE(outer.contains("is not defined"));
}

TEST(SchemaValidation, endsTheNesting)
{
    const QString message = "Error in file:///d/r.xml at line 3 column %1: Elements are nested "
                            "more than 200 levels deep";
    const QByteArray others = "<br/><!-- <b> --><![CDATA[<b>]]><?x <b>?><i a='>'/></b><b>";
    const QByteArray declared = "<!DOCTYPE report [<!ENTITY e '" + QByteArray("<b>").repeated(190) +
                                QByteArray("</b>").repeated(190) + "'>]>";
    const std::pair<QByteArray, QString> rows[] = {
        {nested(200), QString()},
        {nested(200000), message.arg(37 + 198 * 3 - 1)},
        {nested(199, others), QString()},
        {nested(200, others), message.arg(37 + 197 * 3 + 4)},
        {declared + markup("&e;"), QString()},
    };
    const std::unique_ptr<QThread> smallStack(QThread::create([&] {
        for (const auto& [xml, error] : rows)
            EXPECT_EQ(validate(xml).error, error);
        EXPECT_TRUE(qtAccepts(nested(200)));
        EXPECT_TRUE(validate(nested(199, "<x/>")).error.contains("x is not defined"));
        EXPECT_TRUE(validate(declared + nested(100, "&e;")).error.contains("200 levels deep"));
    }));
    smallStack->setStackSize(256 * 1024);
    smallStack->start();
    smallStack->wait();
}
