// What the fast judge accepts and what it leaves to Qt.
#include "definition/schema_documents.h"

#include <QRegularExpression>
#include <QTcpServer>
#include <QTemporaryDir>

#include <random>

using namespace vantrel::report;

namespace {

/// One random change of an attribute, an element, a tag or a few characters.
QByteArray mutated(const QByteArray& xml, std::mt19937& random)
{
    static const QRegularExpression attribute(" (\\w+)=\"([^\"]*)\"");
    static const QRegularExpression element("<(\\w+)[^<>]*(/>|>[^<>]*</\\1>)");
    static const QRegularExpression name("(?<=[</ ])\\w+(?=[ =>/])");
    static const QStringList values =
        QString("| |1|-1|0|+7|1.5|1e3|.5|5.|true|TRUE|si| si |min|sum|2147483648|INF|a b| a "
                "|a:b|1a|_|-a|é|metric|double|·a|a·|&#9;x|-0|007|&#x3b1;.|false|string|"
                "99999999999999999999|+-1")
            .split('|');
    static const QStringList names =
        QString("p|div|a|ul|li|pre|b|x|heading|entry|text|summary|order|id|units|spacer|source|"
                "overwrite|type|requires|maxBarValue|maxAdviceStrings|machineReadableOnly|x:y")
            .split('|');
    const int kind = int(random() % 9);
    const QString text = QString::fromUtf8(xml);
    QVector<QRegularExpressionMatch> found;
    const QRegularExpression& wanted = kind < 4 ? attribute : kind < 8 ? element : name;
    for (auto it = wanted.globalMatch(text); it.hasNext();)
        found.append(it.next());
    const QRegularExpressionMatch one = found.at(int(random() % unsigned(found.size())));
    const QRegularExpressionMatch other = found.at(int(random() % unsigned(found.size())));
    const QString value = values.at(int(random() % unsigned(values.size())));
    const QString newName = names.at(int(random() % unsigned(names.size())));
    const auto replaced = [&](const QRegularExpressionMatch& match, const QString& by,
                              int group = 0) {
        return QString(text).replace(match.capturedStart(group), match.capturedLength(group), by);
    };
    const auto inserted = [&](const QRegularExpressionMatch& match, const QString& what) {
        return QString(text).insert(match.capturedEnd(), what);
    };
    switch (kind) {
    case 0:
    case 4:
        return replaced(one, QString()).toUtf8();
    case 1:
    case 5:
        return inserted(other, one.captured()).toUtf8();
    case 2:
        return replaced(one, newName, 1).toUtf8();
    case 3:
        return replaced(one, value, 2).toUtf8();
    case 6:
        return replaced(one, '<' + newName + '>' + value + "</" + newName + '>').toUtf8();
    case 7:
        return inserted(one, value).toUtf8();
    default:
        return replaced(one, newName).toUtf8();
    }
}

} // namespace

TEST(SchemaAgreement, fetchesNothing)
{
    const QTemporaryDir folder;
    QTcpServer server;
    ASSERT_TRUE(server.listen(QHostAddress::LocalHost));
    const QString http = QString("http://127.0.0.1:%1/x.xsd").arg(server.serverPort());
    // Whoever reads this file takes "x" for a valid root.
    const QString path = folder.filePath("x.xsd");
    writeFile(path, "<xs:schema xmlns:xs='http://www.w3.org/2001/XMLSchema' "
                    "targetNamespace='urn:x'><xs:element name='x'/></xs:schema>");
    const QByteArray comment = "<!-- xmlns=\"http://www.corvane.example/2016/CorvaneReports\" -->";
    const QString entities = folder.filePath("x.ent");
    writeFile(entities, "<b>read</b>");
    const QByteArray instance = "xmlns:i='http://www.w3.org/2001/XMLSchema-instance' i:";
    for (const QString& address : {http, QUrl::fromLocalFile(path).toString()}) {
        const QByteArray at = '\'' + address.toUtf8() + '\'';
        const QByteArray pair = QByteArray(at).replace(0, 1, "'urn:x ");
        EXPECT_FALSE(
            validate(comment + "<x xmlns='urn:x' " + instance + "schemaLocation=" + pair + "/>")
                .accepted);
        for (const QByteArray& more : {"schemaLocation=" + pair, "noNamespaceSchemaLocation=" + at,
                                       QByteArray("type='x'"), QByteArray("nil='0'")}) {
            const QByteArray xml = document("<report", "<report " + instance + more);
            EXPECT_FALSE(schemaAccepts(xml)) << xml.constData();
            validate(xml);
        }
        validate("<!DOCTYPE report SYSTEM " + at + ">" + document("", ""));
    }
    const QByteArray declared = "<!DOCTYPE report [<!ENTITY e SYSTEM '" +
                                QUrl::fromLocalFile(entities).toEncoded() + "'>]>";
    EXPECT_FALSE(schemaAccepts(declared + markup("&e;")));
    validate(declared + markup("&e;"));
    EXPECT_FALSE(server.waitForNewConnection(50));
}

TEST(SchemaAgreement, leavesStrangeTextsToQt)
{
    const QByteArray text = document("", "");
    const std::pair<QByteArray, bool> rows[] = {
        {"<?xml version='1.0' encoding='utf-8' standalone='yes'?>" + text, true},
        {"\xEF\xBB\xBF" + text, true},
        {"\n" + text, true},
        {"<?xml version='1.1'?>" + text, false},
        {"<?xml version='1.0' encoding='ISO-8859-1'?>" + text, false},
        {"<!DOCTYPE report>" + text, false},
        {document("displayName=\"A\"", "displayName='" + QByteArray(100000, 'x') + "'"), true},
        {markup(QByteArray(11000000, 'x')), true},
        {document("id=\"s\"", "id='" + QByteArray(100000, 'x') + "'"), true},
        {document("<subsection ", "<subsection maxAdviceStrings='4294967295' "), true},
        {document("<subsection ", "<subsection maxAdviceStrings='9223372036854775808' "), false},
        {markup("<b xml:id='a'/><b xml:id='a'/>"), false},
        {markup("\xFF"), false},
        {markup("\x01"), false},
    };
    for (const auto& [xml, accepted] : rows)
        EXPECT_EQ(schemaAccepts(xml), accepted) << xml.left(200).constData();
}

TEST(SchemaAgreement, isNotConfusedByManyNames)
{
    const LeaksOfQt leaks;
    // Qt takes the 512th namespace for the first one.
    for (int i = 0; i < 1200; ++i) {
        const QByteArray number = QByteArray::number(i);
        const QByteArray xml =
            markup("<p" + number + ":b xmlns:p" + number + "='urn:" + number + "'/>");
        const Verdict verdict = validate(xml);
        EXPECT_FALSE(verdict.accepted) << i;
        EXPECT_TRUE(verdict.error.contains("{urn:" + number + "}")) << verdict.error.toStdString();
    }
    QByteArray many;
    for (int i = 0; i < 400; ++i)
        many += "<b a" + QByteArray::number(i) + "=''/>";
    EXPECT_TRUE(validate(markup(many)).accepted);
    EXPECT_TRUE(
        validate(markup(many + "<x/>")).error.endsWith("There are more than 300 different names"));
}

TEST(SchemaAgreement, acceptsNothingThatQtRefuses)
{
    const LeaksOfQt leaks;
    std::mt19937 random(20160401);
    int accepted = 0;
    int refused = 0;
    const QString tests = TEST_SOURCE_DIR;
    for (const QString& path :
         {tests + "/render/golden/sample.xml", tests + "/../examples/heat-mpi/heat-report.xml"}) {
        const QByteArray xml = contentOf(path);
        EXPECT_TRUE(schemaAccepts(xml));
        for (int round = 0; round < 250; ++round) {
            const QByteArray changed = mutated(xml, random);
            if (!schemaAccepts(changed)) {
                ++refused;
                continue;
            }
            ++accepted;
            const Verdict verdict = judgeWithQt(changed);
            EXPECT_TRUE(verdict.accepted) << verdict.error.toStdString();
        }
    }
    EXPECT_GT(accepted, 50);
    EXPECT_GT(refused, 100);
}
