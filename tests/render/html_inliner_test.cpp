#include "render/html_inliner.h"

#include <QFile>
#include <QRegExp>
#include <QTemporaryDir>

#include "qt_printing.h"

#include <gtest/gtest.h>

#include <random>

namespace vantrel {

namespace {

class HtmlInliner : public testing::Test {
protected:
    void SetUp() override
    {
        write("a.js", "var a = '<b>';");
        write("a.css", "p { color: red }");
        for (const char* image : {"a.png", "a.jpg", "a.gif", "a.jpeg", "a.PNG"})
            write(image, "PNG");
    }

    void write(const char* name, const char* content) const
    {
        QFile file(folder.filePath(QLatin1String(name)));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(content);
    }

    QString base() const { return folder.path(); }

    QTemporaryDir folder;
};

TEST_F(HtmlInliner, PutsInWhatItFindsAndLeavesTheRest)
{
    const QString image = QStringLiteral("data:image/%1;base64,UE5H");
    const std::pair<QString, QString> rows[] = {
        {"<script src=\"a.js\"></script>", "<script>var a = '<b>';</script>"},
        {"<script type='x' src='a.js' id=\"y\"> \n </SCRIPT>",
         "<script type='x' id=\"y\">var a = '<b>';</script>"},
        {"<script src=a.js></script>", ""},
        {"<script src =\"a.js\"></script>", ""},
        {"<script src=\"a.js\">x</script>", ""},
        {"<script src=\"b.js\"></script>", ""},
        {"<script data-src=\"a.js\"></script>", ""},
        {"<script src=\"b.js\" src=\"a.js\"></script>",
         "<script src=\"b.js\">var a = '<b>';</script>"},
        {"<link href=\"a.css\" rel=\"stylesheet\" />", "<style >p { color: red }</style>"},
        {"<link rel='stylesheet' type=\"text/css\" href='a.css'/>",
         "<style type=\"text/css\">p { color: red }</style>"},
        {"<link rel=\"icon\" href=\"a.png\">", ""},
        {"<link rel=\"stylesheet\" href=\"https://www.corvane.example/a.css\">", ""},
        {"<IMG SRC=\"a.gif\">", "<img src=\"" + image.arg("gif") + "\">"},
        {"<img alt=\"a>b\" src=\"a.png\" width=\"3\">",
         "<img alt=\"a>b\" src=\"" + image.arg("png") + "\" width=\"3\">"},
        {"<img src='a.jpg'/>", "<img src=\"" + image.arg("jpeg") + "\"/>"},
        {"<img src=\"a.jpeg\"><img src=\"a.PNG\"><img src=\"../nosuch.png\">", ""},
        {"<img src=\"https://www.corvane.example/a.png\">", ""},
        {"<img src=\"a.png", ""},
        {"no elements < at all >", ""},
        {"", ""},
    };
    for (const auto& [html, expected] : rows)
        EXPECT_EQ(inlineHtmlResources(html, base()), expected.isEmpty() ? html : expected);
}

/// The elements as regular expressions, which the scanner must agree with.
struct Patterns {
    const QString value = QStringLiteral("(?:'[^']*'|\"[^\"]*\")");
    const QString attributes = QStringLiteral("(?:[^\"'>]|") + value + QStringLiteral(")*");
    const QString rel = QStringLiteral("\\s+rel=(?:\"stylesheet\"|'stylesheet')");

    QString group() const { return u'(' + attributes + u')'; }
    QString attribute(const char* name) const
    {
        return QStringLiteral("\\s+%1=(%2)").arg(QLatin1String(name), value);
    }
    static QRegExp make(const QString& text) { return QRegExp(text, Qt::CaseInsensitive); }

    QRegExp script = make("<script" + group() + attribute("src") + group() + ">\\s*</script>");
    QRegExp link = make("<link" + group() + "(?:(?:" + rel + group() + attribute("href") +
                        ")|(?:" + attribute("href") + group() + rel + "))" + group() + ">");
    QRegExp image = make("<img" + group() + attribute("src") + group() + ">");
};

QString unquoted(const QString& value)
{
    return value.mid(1, value.size() - 2);
}

template <typename Replace>
QString replaceMatches(QRegExp pattern, const QString& html, Replace replace)
{
    QString result;
    int from = 0;
    for (int at = pattern.indexIn(html); at >= 0; at = pattern.indexIn(html, from)) {
        result += html.mid(from, at - from) + replace(pattern);
        from = at + pattern.matchedLength();
    }
    return result + html.mid(from);
}

/// The text of a file of the folder; null if there is none.
QString fileText(const QString& base, const QString& quotedName)
{
    QFile file(base + u'/' + unquoted(quotedName));
    return file.open(QIODevice::ReadOnly) ? QString::fromLatin1(file.readAll()) : QString();
}

/// What the inliner does, by the patterns.
QString inlineByPatterns(const QString& html, const QString& base)
{
    const Patterns patterns;
    const QString scripts = replaceMatches(patterns.script, html, [&](const QRegExp& match) {
        const QString text = fileText(base, match.cap(2));
        return text.isNull() ? match.cap(0)
                             : "<script" + match.cap(1) + match.cap(3) + ">" + text + "</script>";
    });
    const QString styles = replaceMatches(patterns.link, scripts, [&](const QRegExp& match) {
        const QString text = fileText(base, match.cap(3).isEmpty() ? match.cap(4) : match.cap(3));
        QString kept = match.cap(1) + match.cap(2) + match.cap(5) + match.cap(6);
        return text.isNull() ? match.cap(0)
                             : "<style" + kept.remove(QRegExp("/$")) + ">" + text + "</style>";
    });
    return replaceMatches(patterns.image, styles, [&](const QRegExp& match) {
        return match.cap(2).contains(".png") && !fileText(base, match.cap(2)).isNull()
                   ? "<img" + match.cap(1) + " src=\"data:image/png;base64,UE5H\"" + match.cap(3) +
                         ">"
                   : match.cap(0);
    });
}

TEST_F(HtmlInliner, AgreesWithThePatternsOnGeneratedText)
{
    const QStringList pieces =
        QString("<script;<SCRIPT;<link;<Link;<img;</script>;>; src=; href=;\nSRC=; rel=;\"a.js\";"
                "'a.css';\"a.png\";'b.png';'stylesheet';\"StyleSheet\";\";'; ;\t;/;x;=;<; "
                "alt=\"a>b\";\u00a0src=;<img src='a.png'>;<script src='a.js'></script>;\u212a")
            .split(';');
    std::mt19937 random(20161);
    int changed = 0;
    for (int round = 0; round < 6000; ++round) {
        QString html;
        for (unsigned i = 0, count = 1 + random() % 14; i < count; ++i)
            html += pieces.at(int(random() % unsigned(pieces.size())));
        const QString result = inlineHtmlResources(html, base());
        ASSERT_EQ(result, inlineByPatterns(html, base())) << qPrintable(html);
        changed += result != html;
    }
    EXPECT_GT(changed, 500) << "too few of the texts have anything to put in";
}

TEST_F(HtmlInliner, TakesTimeInProportionToHostileText)
{
    for (const char* piece : {"<script ", "<img \"", "<link '\"", "<img src='a.js", "<link \">' ",
                              "<script>", "<img src='b' "}) {
        const QString html = QString::fromLatin1(piece).repeated(200000);
        // A quadratic scan would take hours.
        EXPECT_EQ(inlineHtmlResources(html, base()), html) << piece;
    }
}

} // namespace

} // namespace vantrel
