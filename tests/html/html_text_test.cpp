#include "html/html_entities.h"
#include "html/html_text.h"
#include "html/void_tags.h"

#include <QRegExp>
#include <QStringList>

#include "qt_printing.h"

#include <gtest/gtest.h>

#include <random>

using namespace vantrel;

TEST(ValidateHtml, TestsTheNamesOfTags)
{
    const QString tags =
        "p div h1 h2 h3 h4 h5 h6 ul ol pre blockquote b big i small tt abbr "
        "acronym cite code dfn em kbd strong samp time var br q span sub sup label";
    const QStringList valid = {"",
                               "a < b & c",
                               "x &nosuch; y <script>",
                               "<b>one</i><script>",
                               "</html><script>",
                               "<b>bold</b> &eacute; &Scaron;",
                               "<br><br/><br /><br class=\"a>b\">",
                               "<p>one<br>two</p><div><h6>x</h6><ul><ol/></ul></div><pre/>",
                               "<html>x</html>",
                               "<x:b xmlns:x='urn:x'/>",
                               '<' + tags.split(' ').join("/><") + "/>"};
    const QStringList invalid = {"<script>x</script>", "<hr>",     "<ul><li>x</li></ul>",
                                 "<b><u>x</u></b>",    "<B>x</B>", "<script/> a < b"};
    for (const QString& text : valid + invalid)
        EXPECT_EQ(validateHtml(text), valid.contains(text)) << text.toStdString();
}

TEST(ValidateHtml, IsQuickWithLargeAndDeepTexts)
{
    const std::pair<const char*, int> pieces[] = {
        {"<b>", 300000}, {"<br ", 200000}, {"<br \"'", 200000}, {"<b c=''>==== '' \"</b>", 2000}};
    for (const auto& [piece, count] : pieces)
        EXPECT_TRUE(validateHtml(QString(piece).repeated(count))) << piece;
    EXPECT_TRUE(validateHtml(QString("<b>").repeated(300000) + QString("</b>").repeated(300000)));
    EXPECT_EQ(htmlToPlainText(QString("<p>").repeated(300000) + "x"), "x");
}

TEST(ValidateHtml, RefusesTagsOfMoreThanAThousandAttributes)
{
    const auto attributes = [](int count, const char* value = "''") {
        QString text;
        for (int i = 0; i < count; ++i)
            text += QString(" a%1 = %2").arg(i).arg(value);
        return text;
    };
    const QString thousand = attributes(1000);
    const std::pair<QString, bool> rows[] = {
        {"<b" + thousand + ">x</b>", true},
        {"<b" + attributes(1001, "'>'") + ">x</b>", false},
        {"<b" + thousand + " c=\"'\">x</b>", false},
        {"<b" + thousand + "><i" + thousand + ">", true},
        {attributes(1001), true},
        {"<b>x</b>" + attributes(1001), true},
        {"<b c=\"'\">" + attributes(1001), true},
        {"<!-- <b" + attributes(1001) + "-->", true},
        {"<!-- > --><b" + attributes(1001) + ">", false},
    };
    for (const auto& [text, isValid] : rows) {
        EXPECT_EQ(validateHtml(text), isValid) << text.left(40).toStdString();
        EXPECT_EQ(htmlToPlainText(text + 'x').isEmpty(), !isValid) << text.left(40).toStdString();
    }
}

TEST(HtmlToPlainText, BreaksAtBlocksAndWraps)
{
    const QString words = "one two three four";
    const std::tuple<QString, HtmlOptions, QString> rows[] = {
        {"<p>a</p><p>b</p>", {}, "a\n\nb\n\n"},
        {"a<div>b</div>c", {}, "a\nb\nc"},
        {"a<br>b<h1>c</h1>", {}, "a\nb\nc\n"},
        {"<div></div>x", {}, "\nx"},
        {"a \n\t b&nbsp;&lt;&eacute;", {}, QString::fromUtf8("a b\u00a0<\u00e9")},
        {"a \n\t b", {80, false}, "a \n\t b"},
        {"a &nosuch; b", {}, "a "},
        {words, {1, true}, "one\ntwo\nthree\nfour"},
        {"one two six four", {8, true}, "one two\nsix four"},
        {"a b<br>ccccc", {4, true}, "a b\nccccc"},
        {words, {HtmlOptions::noWrapping, true}, words},
        {"aa&#13;bb cc", {6, false}, "aa\rbb cc"},
    };
    for (const auto& [html, options, text] : rows)
        EXPECT_EQ(htmlToPlainText(html, options), text) << html.toStdString();
}

TEST(CloseVoidTags, AgreesWithThePatternsOnGeneratedText)
{
    const QStringList names =
        QString("area base br col embed hr img input keygen link meta param source track wbr")
            .split(' ');
    QStringList pieces =
        QString("<br;<hr;<col;<b;>;/;\";'; a=\";=';x; ;<;/>;<img src='a>b';\n;<BR>;group;\"'\"")
            .split(';');
    for (const QString& name : names)
        pieces += '<' + name + '>';
    std::mt19937 random(20162);
    int changed = 0;
    for (int round = 0; round < 4000; ++round) {
        QString html;
        for (unsigned i = 0, count = 1 + random() % 12; i < count; ++i)
            html += pieces.at(int(random() % unsigned(pieces.size())));
        QString expected = html;
        for (const QString& name : names) {
            const QRegExp pattern(QString("<%1(((\"[^<\"]*\")|('[^<']*')|[^>/])*)>").arg(name));
            expected.replace(pattern, QString("<%1\\1/>").arg(name));
        }
        ASSERT_EQ(closeVoidTags(html), expected) << html.toStdString();
        changed += expected != html;
    }
    EXPECT_GT(changed, 500);
}

TEST(HtmlEntityResolver, KnowsTheNamesOfHtml)
{
    const std::pair<const char*, ushort> names[] = {
        {"apos", 0x27}, {"yuml", 0xFF}, {"Yuml", 0x178}, {"diams", 0x2666}};
    HtmlEntityResolver resolver;
    for (const auto& [name, code] : names)
        EXPECT_EQ(resolver.resolveUndeclaredEntity(name), QString(QChar(code)));
    for (const char* name : {"nosuch", "", "EACUTE", "\xC3\xA9"})
        EXPECT_EQ(resolver.resolveUndeclaredEntity(name), QString()) << name;
}
