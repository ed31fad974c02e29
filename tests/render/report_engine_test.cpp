// What neither the helper cases nor the finished page show of the engine.
#include "render/report_engine.h"

#include <QJsonDocument>
#include <QTemporaryFile>

#include "qt_printing.h"

#include <gtest/gtest.h>

using namespace corvane;

namespace {

TEST(ReportEngine, TellsWhatFailsAndGoesOn)
{
    ReportEngine engine;
    const auto messageOfLoading = [&](const char* name, const char* text) {
        QTemporaryFile file;
        EXPECT_TRUE(file.open());
        file.write(text);
        file.close();
        QString error;
        const bool isLoaded =
            name ? engine.loadPartialFromFile(name, file, ReportFormat::Html, &error)
                 : engine.loadJavaScriptFromFile(file, &error);
        EXPECT_EQ(isLoaded, error.isEmpty());
        return error;
    };
    EXPECT_TRUE(messageOfLoading("bad", "{{#if a}}").contains("Parse error"));
    EXPECT_TRUE(messageOfLoading(nullptr, "nosuch()").contains("nosuch is not defined"));
    EXPECT_TRUE(messageOfLoading(nullptr, "throw 'a plain text'").contains("a plain text"));
    EXPECT_EQ(messageOfLoading("p", "<p>{{a}}{{#if b}}{{> bad}}{{/if}}</p>"), "");
    EXPECT_EQ(messageOfLoading("trims", "{{trim}}"), "");
    const std::tuple<const char*, QJsonObject, ReportFormat, QString, QString> rows[] = {
        {"p", {{"a", "x < y"}}, ReportFormat::Html, "<p>x &lt; y</p>", ""},
        {"p", {{"a", "x < y"}}, ReportFormat::Text, "x < y\n\n", ""},
        {"p", {{"b", 1}}, ReportFormat::Text, "", "The partial bad could not be found"},
        {"trims", {}, ReportFormat::Text, "", "invalid usage of trim, an argument is required "},
        {"nosuch", {}, ReportFormat::Html, "", "Invalid template \"nosuch\" for html"},
        {"nosuch", {}, ReportFormat::Unknown, "", "Invalid format \"\""},
    };
    QString error;
    for (const auto& [name, data, format, text, message] : rows) {
        error.clear();
        EXPECT_EQ(engine.renderStatic(data, name, format, &error), text);
        EXPECT_TRUE(error.contains(message) && error.isEmpty() == message.isEmpty())
            << qPrintable(error);
    }
    QFile missing("/no such/missing.html");
    EXPECT_FALSE(engine.loadPartialFromFile("p", missing, ReportFormat::Html, &error));
    EXPECT_TRUE(error.contains("missing.html"));
    error.clear();
    EXPECT_FALSE(engine.loadJavaScriptFromFile(missing, &error));
    EXPECT_TRUE(error.contains("missing.html"));
    EXPECT_EQ(engine.renderDynamicHtml({}, "bad", &error), "");
    EXPECT_EQ(error, "Invalid template \"bad\" for html");
    EXPECT_TRUE(engine.renderDynamicHtml({{"a", 1}}, "p", &error).contains("{\"a\":1}"));
}

TEST(PageJson, HoldsNothingThatAPageCouldTakeForMarkup)
{
    const QString hostile = QString::fromUtf8("</script><!-- & \" \u2028\u2029\u00e9 \U0001f600");
    const QJsonObject data{{hostile, hostile}};
    const QByteArray json = pageJson(data);
    for (const char* piece : {"<", ">", "&", "\xe2\x80\xa8", "\xe2\x80\xa9"})
        EXPECT_FALSE(json.contains(piece)) << piece;
    EXPECT_EQ(QJsonDocument::fromJson(json).object(), data);
}

} // namespace
