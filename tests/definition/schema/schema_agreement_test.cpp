// What the fast judge accepts and what it leaves to Qt.
#include "definition/schema/schema_documents.h"

#include <QRegularExpression>
#include <QTemporaryDir>

#include <libxml/parser.h>

#include <random>

using namespace vantrel::report;

namespace {

/// One random change of an attribute, a name, an element or a few characters.
QByteArray mutated(const QByteArray& xml, std::mt19937& random)
{
    static const QStringList kinds = {R"( \w+="[^"]*")", R"((?<==")[^"]*)",
                                      R"((?<=[</ ])\w+(?=[ =>/]))",
                                      R"(<(\w+)[^<>]*(/>|>[^<>]*</\1>))"};
    static const QStringList words =
        QString("| |1|-1|0|+7|1.5|1e3|.5|5.|true|TRUE|si| si |min|sum|2147483648|INF|a b| a "
                "|a:b|1a|_|-a|é|metric|double|·a|a·|&#9;x|-0|007|&#x3b1;.|false|string|"
                "99999999999999999999|+-1|p|div|a|ul|li|pre|b|x|heading|entry|text|summary|order|"
                "id|units|spacer|source|overwrite|type|requires|maxBarValue|maxAdviceStrings|"
                "machineReadableOnly|x:y")
            .split('|');
    const auto pick = [&](const auto& list) {
        return list.at(int(random() % unsigned(list.size())));
    };
    QString text = QString::fromUtf8(xml);
    QVector<QRegularExpressionMatch> found;
    for (auto it = QRegularExpression(pick(kinds)).globalMatch(text); it.hasNext();)
        found.append(it.next());
    const QRegularExpressionMatch one = pick(found);
    const QString word = pick(words);
    const QString twice = one.captured() + pick(found).captured();
    const QStringList changes = {"", word, twice, '<' + word + "/>", one.captured() + word};
    return text.replace(one.capturedStart(), one.capturedLength(), pick(changes)).toUtf8();
}

} // namespace

// The refusals among the hosts see to it that nothing is asked for over the network either.
TEST(SchemaAgreement, readsNoOtherFile)
{
    const QTemporaryDir folder;
    // Whoever reads the schema takes "x" for a valid root, and the entity is no markup.
    writeFile(folder.filePath("x.xsd"),
              "<xs:schema xmlns:xs='http://www.w3.org/2001/XMLSchema' "
              "targetNamespace='urn:x'><xs:element name='x'/></xs:schema>");
    writeFile(folder.filePath("x.ent"), "<nosuch/>");
    const QByteArray comment = "<!-- xmlns=\"http://www.corvane.example/2016/CorvaneReports\" -->";
    const QByteArray files = QUrl::fromLocalFile(folder.path()).toEncoded();
    const QByteArray instance = "xmlns:i='http://www.w3.org/2001/XMLSchema-instance' i:";
    const QByteArray address = files + "/x.xsd";
    const QByteArray schema = instance + "schemaLocation='urn:x " + address + "'";
    const std::pair<QByteArray, bool> rows[] = {
        {comment + "<x xmlns='urn:x' " + schema + "/>", false},
        {document("<report ", "<report " + schema + ' '), true},
        {document("<report ",
                  "<report " + instance + "noNamespaceSchemaLocation='" + address + "' "),
         true},
        {document("<report ", "<report " + instance + "type='x' "), false},
        {document("<report ", "<report " + instance + "nil='0' "), false},
        {"<!DOCTYPE report SYSTEM '" + address + "'>" + document("", ""), true},
        {"<!DOCTYPE report [<!ENTITY e SYSTEM '" + files + "/x.ent'>]>" + markup("&e;"), true},
    };
    for (const auto& [xml, isValid] : rows) {
        EXPECT_FALSE(schemaAccepts(xml)) << xml.constData();
        EXPECT_EQ(validate(xml).accepted, isValid) << xml.constData();
    }
}

TEST(SchemaAgreement, leavesLibxmlAsTheHostHasIt)
{
    const auto handler = [](void*, xmlErrorPtr) {};
    int context = 0;
    xmlSetStructuredErrorFunc(&context, handler);
    xmlDoc* const faulty = xmlReadMemory("<a", 2, "host.xml", nullptr, 0);
    EXPECT_FALSE(faulty);
    const std::string before = xmlGetLastError()->message;
    EXPECT_TRUE(schemaAccepts(document("", "")));
    EXPECT_FALSE(schemaAccepts(document("<spacer/>", "<x/>")));
    EXPECT_EQ(before, xmlGetLastError()->message);
    EXPECT_EQ(std::string("host.xml"), xmlGetLastError()->file);
    EXPECT_EQ(xmlStructuredErrorContext, &context);
    EXPECT_EQ(xmlStructuredError, static_cast<xmlStructuredErrorFunc>(handler));
    xmlSetStructuredErrorFunc(nullptr, nullptr);
    xmlResetLastError();
    EXPECT_TRUE(schemaAccepts(document("", "")));
    EXPECT_FALSE(xmlGetLastError());
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
    for (int i = 0; i < 600; ++i) {
        const QByteArray number = QByteArray::number(i);
        const QByteArray xml =
            markup("<p" + number + ":b xmlns:p" + number + "='urn:" + number + "'/>");
        const QString error = validate(xml).error;
        EXPECT_TRUE(error.contains("{urn:" + number + "}")) << i << error.toStdString();
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
    const QString tests = TEST_SOURCE_DIR;
    for (const QString& path :
         {tests + "/render/golden/sample.xml", tests + "/../examples/heat-mpi/heat-report.xml"}) {
        const QByteArray xml = contentOf(path);
        EXPECT_TRUE(schemaAccepts(xml));
        for (int round = 0; round < 250; ++round) {
            const QByteArray changed = mutated(xml, random);
            if (!schemaAccepts(changed))
                continue;
            ++accepted;
            EXPECT_TRUE(qtAccepts(changed)) << changed.constData();
        }
    }
    EXPECT_TRUE(accepted > 50 && accepted < 400) << accepted;
}
