#include "render/html_inliner.h"

#include <QFile>
#include <QMap>
#include <QRegExp>
#include <QTemporaryDir>

#include "qt_printing.h"

#include <gtest/gtest.h>

#include <random>

using namespace vantrel;

namespace {

const QMap<QString, QByteArray> files = {{"a.js", "var a = '<b>';"},
                                         {"a.css", "p { color: red }"},
                                         {"a.png", "PNG"},
                                         {"a.jpg", "PNG"},
                                         {"a.gif", "PNG"},
                                         {"a.jpeg", "PNG"},
                                         {"a.PNG", "PNG"}};

class HtmlInliner : public testing::Test {
protected:
    void SetUp() override
    {
        for (auto it = files.begin(); it != files.end(); ++it) {
            QFile file(folder.filePath(it.key()));
            ASSERT_TRUE(file.open(QIODevice::WriteOnly));
            file.write(it.value());
        }
    }

    QString inlined(const QString& html) const { return inlineHtmlResources(html, folder.path()); }

    QTemporaryDir folder;
};

TEST_F(HtmlInliner, PutsInWhatItFindsAndLeavesTheRest)
{
    const QString image = QStringLiteral("data:image/%1;base64,UE5H");
    const std::pair<QString, QString> rows[] = {
        {"<script type='x' src='a.js' id=\"y\"> \n </SCRIPT>",
         "<script type='x' id=\"y\">var a = '<b>';</script>"},
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
    };
    for (const auto& [html, expected] : rows)
        EXPECT_EQ(inlined(html), expected.isEmpty() ? html : expected);
}

/// The texts that a match captured, and the text of the file that it names.
using Replacement = QString (*)(const QStringList& caps, const QString& text);

/// Replaces the matches whose capture @p name, or the one after it, is the quoted name of a file.
QString replaceMatches(QString html, const QString& pattern, int name, Replacement replacement)
{
    const QRegExp expression(pattern, Qt::CaseInsensitive);
    for (int at = 0; (at = expression.indexIn(html, at)) >= 0;) {
        const QStringList caps = expression.capturedTexts();
        const QString quoted = caps.at(name).isEmpty() ? caps.at(name + 1) : caps.at(name);
        const auto file = files.find(quoted.mid(1).chopped(1));
        const QString result = file == files.end() ? caps.at(0) : replacement(caps, *file);
        html.replace(at, expression.matchedLength(), result);
        at += result.size();
    }
    return html;
}

/// What the inliner must agree with: the elements as regular expressions.
QString inlineByPatterns(QString html)
{
    const QString value = "('[^']*'|\"[^\"]*\")";
    const QString others = "((?:[^\"'>]|'[^']*'|\"[^\"]*\")*)";
    const QString src = "\\s+src=" + value;
    const QString href = "\\s+href=" + value;
    const QString rel = "\\s+rel=(?:\"stylesheet\"|'stylesheet')";
    const QString script = "<script" + others + src + others + ">\\s*</script>";
    const QString styles = rel + others + href + '|' + href + others + rel;
    const QString link = "<link" + others + "(?:" + styles + ')' + others + '>';
    const QString image = "<img" + others + src + others + '>';
    html = replaceMatches(html, script, 2, [](const QStringList& caps, const QString& text) {
        return "<script" + caps[1] + caps[3] + '>' + text + "</script>";
    });
    html = replaceMatches(html, link, 3, [](const QStringList& caps, const QString& text) {
        QString kept = caps[1] + caps[2] + caps[5] + caps[6];
        return "<style" + kept.remove(QRegExp("/$")) + '>' + text + "</style>";
    });
    return replaceMatches(html, image, 2, [](const QStringList& caps, const QString& text) {
        const QString source = " src=\"data:image/png;base64,UE5H\"";
        return text == "PNG" ? "<img" + caps[1] + source + caps[3] + '>' : caps[0];
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
        const QString result = inlined(html);
        ASSERT_EQ(result, inlineByPatterns(html)) << qPrintable(html);
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
        EXPECT_EQ(inlined(html), html) << piece;
        EXPECT_EQ(inlined(html + '>'), html + '>') << piece;
    }
}

} // namespace
