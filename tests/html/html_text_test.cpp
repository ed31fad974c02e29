#include "html/html_entities.h"
#include "html/html_text.h"
#include "html/void_tags.h"

#include <QRegExp>
#include <QStringList>

#include "qt_printing.h"

#include <gtest/gtest.h>

#include <random>

namespace vantrel {

namespace {

TEST(ValidateHtml, TestsTheNamesOfTags)
{
    const std::pair<QString, bool> rows[] = {
        {"", true},
        {"plain & simple", true},
        {"a < b", true},
        {"x &nosuch; y <script>", true},
        {"<b>one</i><script>", true},
        {"</html><script>", true},
        {"<b>bold</b> &eacute; &Scaron;", true},
        {"<br><br/><br /><br class=\"a>b\">", true},
        {"<p>one<br>two</p><div><h6>x</h6><ul><ol/></ul></div><pre/><blockquote/>", true},
        {"<tt/><abbr/><acronym/><cite/><code/><dfn/><em/><kbd/><strong/><samp/><time/><var/>",
         true},
        {"<big/><small/><q/><span/><sub/><sup/><label/><i/>", true},
        {"<html>x</html>", true},
        {"<script>x</script>", false},
        {"<a href=\"x\">y</a>", false},
        {"<img src=\"x\">", false},
        {"<hr>", false},
        {"<table/>", false},
        {"<ul><li>x</li></ul>", false},
        {"<B>x</B>", false},
        {"<b><u>x</u></b>", false},
        {"<script/> a < b", false},
        {"<svg onload='x'/>", false},
        {"<x:b xmlns:x='urn:x'/>", true},
    };
    for (const auto& [text, isValid] : rows)
        EXPECT_EQ(validateHtml(text), isValid) << text.toStdString();
}

TEST(ValidateHtml, IsQuickWithLargeAndDeepTexts)
{
    EXPECT_TRUE(validateHtml(QString("<b>").repeated(300000)));
    EXPECT_TRUE(validateHtml(QString("<b>").repeated(300000) + QString("</b>").repeated(300000)));
    EXPECT_TRUE(validateHtml(QString("<br ").repeated(200000)));
    EXPECT_TRUE(validateHtml(QString("<br \"'").repeated(200000)));
    EXPECT_FALSE(validateHtml(QString("<u>").repeated(300000)));
    EXPECT_TRUE(validateHtml(QString("<b c=''>==== '' \"</b>").repeated(2000)));
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
    const struct {
        QString text;
        bool isValid;
    } rows[] = {
        {"<b" + thousand + ">x</b>", true},
        {"<b" + attributes(100000) + ">x</b>", false},
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
    const struct {
        QString html;
        HtmlOptions options;
        QString text;
    } rows[] = {
        {"<p>a</p><p>b</p>", {}, "a\n\nb\n\n"},
        {"a<div>b</div>c", {}, "a\nb\nc"},
        {"a<br>b<h1>c</h1>", {}, "a\nb\nc\n"},
        {"<div></div>x", {}, "\nx"},
        {"a \n\t b&nbsp;&lt;&eacute;", {}, QString::fromUtf8("a b\u00a0<\u00e9")},
        {"a \n\t b", {80, false}, "a \n\t b"},
        {"a &nosuch; b", {}, "a "},
        {words, {9, true}, "one two\nthree\nfour"},
        {words, {1, true}, "one\ntwo\nthree\nfour"},
        {words, {HtmlOptions::noWrapping, true}, words},
        {"longer words", {3, true}, "longer\nwords"},
        {"a<br>bb cc", {4, true}, "a\nbb\ncc"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(htmlToPlainText(row.html, row.options), row.text) << row.html.toStdString();
}

TEST(CloseVoidTags, AgreesWithThePatternsOnGeneratedText)
{
    const QStringList names =
        QString("area base br col embed hr img input keygen link meta param source track wbr")
            .split(' ');
    const QStringList pieces =
        QString(
            "<br;<hr;<col;<b;>;/;\";'; a=\";=';x; ;<;/>;<img src='a>b';<wbr>;\n;<BR>;group;\"'\"")
            .split(';');
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
    HtmlEntityResolver resolver;
    const std::pair<const char*, ushort> rows[] = {
        {"apos", 0x27},     {"nbsp", 0xa0},     {"eacute", 0xe9}, {"Scaron", 0x160},
        {"scaron", 0x161},  {"thinsp", 0x2009}, {"euro", 0x20ac}, {"lang", 0x2329},
        {"hearts", 0x2665}, {"Omega", 0x3a9}};
    for (const auto& [name, code] : rows)
        EXPECT_EQ(resolver.resolveUndeclaredEntity(name), QString(QChar(code))) << name;
    for (const char* name : {"nosuch", "", "EACUTE", "check"})
        EXPECT_EQ(resolver.resolveUndeclaredEntity(name), QString()) << name;
}

} // namespace

} // namespace vantrel
