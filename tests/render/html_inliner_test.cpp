#include "render/html_inliner.h"

#include <QFile>
#include <QTemporaryDir>

#include "qt_printing.h"

#include <gtest/gtest.h>

using namespace vantrel;

namespace {

class HtmlInliner : public testing::Test {
protected:
    HtmlInliner()
    {
        const std::pair<const char*, const char*> files[] = {{"a.js", "var a = '<b>';"},
                                                             {"a.css", "p { color: red }"},
                                                             {"a.png", "PNG"},
                                                             {"a.jpg", "PNG"},
                                                             {"a.gif", "PNG"},
                                                             {"a.jpeg", "PNG"},
                                                             {"a.PNG", "PNG"}};
        for (const auto& [name, text] : files) {
            QFile file(folder.filePath(name));
            EXPECT_TRUE(file.open(QIODevice::WriteOnly) && file.write(text) > 0);
        }
    }

    QString inlined(const QString& html) const { return inlineHtmlResources(html, folder.path()); }

    QTemporaryDir folder;
};

TEST_F(HtmlInliner, PutsInWhatItFindsAndLeavesTheRest)
{
    const QString script = "var a = '<b>';</script>";
    const QString styles = "p { color: red }</style>";
    const QString image = QStringLiteral("data:image/%1;base64,UE5H\"");
    // An empty text stands for one that stays as it is.
    const std::pair<QString, QString> rows[] = {
        {"<script type='x' src='a.js' id=\"y\"> \n </SCRIPT>",
         "<script type='x' id=\"y\">" + script},
        {"<SCRIPT SRC='b.js' x\u00a0src='a.js'></script>", "<script SRC='b.js' x>" + script},
        {"<script src='b.js'><script\tsrc='a.js'></script>",
         "<script src='b.js'><script>" + script},
        {"<script src='b.js'></script><script src='a.js'></script>",
         "<script src='b.js'></script><script>" + script},
        {"<script x '<script src='a.js'></script>", "<script x '<script>" + script},
        {"<script data-src=\"a.js\"></script><script src= 'a.js'></script>", ""},
        {"<script x='1'src='a.js'></script><script =' src='a.js></script>", ""},
        {"<script src='a.js'>x</script><script src='a.js'></script", ""},
        {"<link rel='stylesheet' type=\"text/css\" href='a.css'/>",
         "<style type=\"text/css\">" + styles},
        {"<lin\u212a href='b.css' HREF=\"a.css\" REL=\"StyleSheet\" />",
         "<style href='b.css' >" + styles},
        {"<link rel='stylesheet' href='b.css' rel='stylesheet' href='a.css' x>",
         "<style rel='stylesheet' href='b.css' x>" + styles},
        {"<link rel='icon' href='a.css'><link x='stylesheet' href='a.css'><link href='a.css'>", ""},
        {"<IMG SRC=\"a.gif\">", "<img src=\"" + image.arg("gif") + ">"},
        {"<img alt=\"a>b\"\nsrc='a.jpg'/>", "<img alt=\"a>b\" src=\"" + image.arg("jpeg") + "/>"},
        {"<img src='b.png'><img \"<img src='a.png' x>",
         "<img src='b.png'><img \"<img src=\"" + image.arg("png") + " x>"},
        {"<img src=\"a.jpeg\"><img src=\"a.PNG\"><img src=\"../nosuch.png\">", ""},
    };
    for (const auto& [html, expected] : rows)
        EXPECT_EQ(inlined(html), expected.isEmpty() ? html : expected);
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
