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
    const std::pair<QString, bool> rows[] = {
        {"", true},
        {"plain & simple", true},
        {"a < b", true},
        {"x &nosuch; y <script>", true},
        {"<b>one</i><script>", true},
        {"</html><script>", true},
        {"<b>bold</b> &eacute; &Scaron;", true},
        {"<br><br/><br /><br class=\"a>b\">", true},
        {"<p>one<br>two</p><div><h6>x</h6><ul><ol/></ul></div><pre/>", true},
        {"<h1/><h2/><h3/><h4/><h5/><blockquote/>", true},
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
    const std::pair<QString, bool> rows[] = {
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
    const std::tuple<QString, HtmlOptions, QString> rows[] = {
        {"<p>a</p><p>b</p>", {}, "a\n\nb\n\n"},
        {"a<div>b</div>c", {}, "a\nb\nc"},
        {"a<br>b<h1>c</h1>", {}, "a\nb\nc\n"},
        {"<div></div>x", {}, "\nx"},
        {"a \n\t b&nbsp;&lt;&eacute;", {}, QString::fromUtf8("a b\u00a0<\u00e9")},
        {"a \n\t b", {80, false}, "a \n\t b"},
        {"a &nosuch; b", {}, "a "},
        {words, {9, true}, "one two\nthree\nfour"},
        {words, {1, true}, "one\ntwo\nthree\nfour"},
        {"one two six four", {8, true}, "one two\nsix four"},
        {"a b<br>ccccc", {4, true}, "a b\nccccc"},
        {words, {HtmlOptions::noWrapping, true}, words},
        {"longer words", {3, true}, "longer\nwords"},
        {"a<br>bb cc", {4, true}, "a\nbb\ncc"},
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
    // The characters of names follow each other from the code in front of them on.
    const QString table =
        "#27 apos #22 quot #26 amp #3c lt #3e gt #a0 nbsp iexcl cent pound curren yen brvbar "
        "sect uml copy ordf laquo not shy reg macr deg plusmn sup2 sup3 acute micro para "
        "middot cedil sup1 ordm raquo frac14 frac12 frac34 iquest Agrave Aacute Acirc Atilde "
        "Auml Aring AElig Ccedil Egrave Eacute Ecirc Euml Igrave Iacute Icirc Iuml ETH Ntilde "
        "Ograve Oacute Ocirc Otilde Ouml times Oslash Ugrave Uacute Ucirc Uuml Yacute THORN "
        "szlig agrave aacute acirc atilde auml aring aelig ccedil egrave eacute ecirc euml "
        "igrave iacute icirc iuml eth ntilde ograve oacute ocirc otilde ouml divide oslash "
        "ugrave uacute ucirc uuml yacute thorn yuml #152 OElig oelig #160 Scaron scaron #178 "
        "Yuml #192 fnof #2c6 circ #2dc tilde #391 Alpha Beta Gamma Delta Epsilon Zeta Eta "
        "Theta Iota Kappa Lambda Mu Nu Xi Omicron Pi Rho #3a3 Sigma Tau Upsilon Phi Chi Psi "
        "Omega #3b1 alpha beta gamma delta epsilon zeta eta theta iota kappa lambda mu nu xi "
        "omicron pi rho sigmaf sigma tau upsilon phi chi psi omega #3d1 thetasym upsih #3d6 "
        "piv #2002 ensp emsp #2009 thinsp #200c zwnj zwj lrm rlm #2013 ndash mdash #2018 "
        "lsquo rsquo sbquo #201c ldquo rdquo bdquo #2020 dagger Dagger bull #2026 hellip "
        "#2030 permil #2032 prime Prime #2039 lsaquo rsaquo #203e oline #2044 frasl #20ac "
        "euro #2111 image #2118 weierp #211c real #2122 trade #2135 alefsym #2190 larr uarr "
        "rarr darr harr #21b5 crarr #21d0 lArr uArr rArr dArr hArr #2200 forall #2202 part "
        "exist #2205 empty #2207 nabla isin notin #220b ni #220f prod #2211 sum minus #2217 "
        "lowast #221a radic #221d prop infin #2220 ang #2227 and or cap cup int #2234 there4 "
        "#223c sim #2245 cong #2248 asymp #2260 ne equiv #2264 le ge #2282 sub sup nsub #2286 "
        "sube supe #2295 oplus #2297 otimes #22a5 perp #22c5 sdot #2308 lceil rceil lfloor "
        "rfloor #2329 lang rang #25ca loz #2660 spades #2663 clubs #2665 hearts diams";
    HtmlEntityResolver resolver;
    ushort code = 0;
    int count = 0;
    for (const QString& word : table.split(' ')) {
        if (word.startsWith('#')) {
            code = word.mid(1).toUShort(nullptr, 16);
            continue;
        }
        EXPECT_EQ(resolver.resolveUndeclaredEntity(word), QString(QChar(code++)));
        ++count;
    }
    EXPECT_EQ(count, 253);
    for (const char* name : {"nosuch", "", "EACUTE", "check", "\xC3\xA9"})
        EXPECT_EQ(resolver.resolveUndeclaredEntity(name), QString()) << name;
}
