#include "render/report_engine.h"

#include <QFile>
#include <QJsonDocument>
#include <QTemporaryDir>

#include "qt_printing.h"

#include <gtest/gtest.h>

using namespace corvane;

namespace {

class Engine : public testing::Test {
protected:
    QString path(const char* name) const { return folder.filePath(QLatin1String(name)); }

    bool loadPartial(const char* name, const char* text, ReportFormat format)
    {
        QFile file(path(name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(text);
        file.close();
        return engine.loadPartialFromFile(QLatin1String(name), file, format, &error);
    }

    QString render(const char* name, ReportFormat format, const QJsonObject& data = {})
    {
        error.clear();
        return engine.renderStatic(data, QLatin1String(name), format, &error);
    }

    QTemporaryDir folder;
    ReportEngine engine;
    QString error;
};

TEST_F(Engine, RendersInBothFormsFromOneTemplate)
{
    ASSERT_TRUE(loadPartial("p", "<p>{{a}}</p>", ReportFormat::Html)) << qPrintable(error);
    const QJsonObject data{{"a", "x < y"}};
    EXPECT_EQ(render("p", ReportFormat::Html, data), "<p>x &lt; y</p>");
    EXPECT_EQ(render("p", ReportFormat::Text, data), "x < y\n\n");
    EXPECT_EQ(error, "");
}

TEST_F(Engine, TellsWhatFails)
{
    EXPECT_FALSE(loadPartial("bad", "{{#if a}}", ReportFormat::Html));
    EXPECT_TRUE(error.contains("Parse error")) << qPrintable(error);
    error.clear();

    QFile missing(path("missing.html"));
    EXPECT_FALSE(engine.loadPartialFromFile("missing", missing, ReportFormat::Html, &error));
    EXPECT_TRUE(error.contains("missing.html")) << qPrintable(error);
    error.clear();
    EXPECT_FALSE(engine.loadJavaScriptFromFile(missing, &error));
    EXPECT_TRUE(error.contains("missing.html"));

    EXPECT_EQ(render("nosuch", ReportFormat::Html), "");
    EXPECT_EQ(error, "Invalid template \"nosuch\" for html");
    EXPECT_EQ(render("nosuch", ReportFormat::Unknown), "");
    EXPECT_EQ(error, "Invalid format \"\"");

    ASSERT_TRUE(loadPartial("trims", "{{trim}}", ReportFormat::Text));
    EXPECT_EQ(render("trims", ReportFormat::Text), "");
    EXPECT_EQ(error, "invalid usage of trim, an argument is required when used as a function");
    ASSERT_TRUE(loadPartial("refers", "{{> bad}}", ReportFormat::Text));
    EXPECT_EQ(render("refers", ReportFormat::Text), "");
    EXPECT_TRUE(error.contains("The partial bad could not be found")) << qPrintable(error);

    ASSERT_TRUE(loadPartial("good", "still works", ReportFormat::Text));
    EXPECT_EQ(render("good", ReportFormat::Text), "still works");
}

TEST_F(Engine, PageHoldsEverythingInOrder)
{
    ASSERT_TRUE(loadPartial("main", "{{a}}", ReportFormat::Html));
    ASSERT_TRUE(loadPartial("other", "{{b}}", ReportFormat::Text));
    QFile script(path("s.js"));
    ASSERT_TRUE(script.open(QIODevice::WriteOnly));
    script.write("var fromScript = 1;");
    script.close();
    ASSERT_TRUE(engine.loadJavaScriptFromFile(script, &error)) << qPrintable(error);
    engine.loadAdditionalHeadContent("<title>T</title>");
    const QString page = engine.renderDynamicHtml({{"a", 1}}, "main", &error);
    int at = 0;
    for (const char* piece :
         {"<!DOCTYPE html>", "<html lang=\"en\">", "<head>", "charset=\"utf-8\"", "viewport",
          "<title>T</title>", "src=\"polyfill.js\"", "src=\"corvane.js\"",
          "src=\"handlebars.min-v4.0.5.js\"", "src=\"htmlparser.js\"", "src=\"report-engine.js\"",
          "var fromScript = 1;", "</head>", "{\"a\":1}",
          "<script type=\"text/html\" id=\"main\">{{a}}</script>",
          "<script type=\"text/plain\" id=\"other\">{{b}}</script>", "\"main\"", "</body>",
          "</html>"}) {
        at = page.indexOf(QLatin1String(piece), at);
        ASSERT_GE(at, 0) << piece;
    }
    EXPECT_TRUE(page.endsWith("</html>"));
    for (const char* unknown : {"nosuch", ""}) {
        error.clear();
        EXPECT_EQ(engine.renderDynamicHtml({}, unknown, &error), "");
        EXPECT_FALSE(error.isEmpty());
    }
}

TEST(PageJson, HoldsNothingThatAPageCouldTakeForMarkup)
{
    const QString hostile = QString::fromUtf8("</script><!-- & ]]> <img src=\"a.png\"> \u2028\u2029"
                                              " \u00e9 \xf0\x9f\x98\x80");
    const QJsonObject data{{hostile, hostile}};
    const QByteArray json = pageJson(data);
    for (const char* piece : {"<", ">", "&", "\xe2\x80\xa8", "\xe2\x80\xa9"})
        EXPECT_FALSE(json.contains(piece)) << piece;
    EXPECT_EQ(QJsonDocument::fromJson(json).object(), data);
}

} // namespace
