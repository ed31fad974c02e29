// Runs the table of helper cases in the interpreter. The browser runs the same table.
#include "render/resources.h"
#include "render/script_interpreter.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include "qt_printing.h"

#include <gtest/gtest.h>

namespace {

QByteArray readAll(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// Makes rendering a "template" mean running a row of the table.
constexpr char runRows[] = R"js(
    ReportEngine.render = function (name, format, row) {
        var engine = ReportEngine.create();
        corvane.idCounters = {};
        engine.registerHelpers({all: vantrel.templateHelpers});
        (row.partials || []).forEach(function (partial) {
            engine.registerPartial(partial.name, partial.format, partial.text);
        });
        engine.registerPartial('case', row.format, row.template);
        return engine.render('case', row.format, row.data);
    };
)js";

TEST(HelperCases, EveryRowGivesInTheInterpreterWhatTheTableSays)
{
    const QJsonArray rows =
        QJsonDocument::fromJson(readAll(TEST_SOURCE_DIR "/page/helper_cases.json")).array();
    ASSERT_GT(rows.size(), 50);
    QString message;
    const auto interpreter = corvane::ScriptInterpreter::start(&message);
    ASSERT_TRUE(interpreter) << qPrintable(message);
    const QByteArray helpers = readAll(vantrel::resourcePath("vantrel.js"));
    ASSERT_TRUE(interpreter->run(QString::fromUtf8(helpers), &message)) << qPrintable(message);
    ASSERT_TRUE(interpreter->run(runRows, &message)) << qPrintable(message);

    for (const QJsonValue& value : rows) {
        const QJsonObject row = value.toObject();
        SCOPED_TRACE(qPrintable(row.value("name").toString()));
        QString error;
        const std::optional<QString> text = interpreter->render(
            QString(), QString(), QString::fromUtf8(QJsonDocument(row).toJson()), &error);
        if (row.contains("error")) {
            const QString expected = row.value("error").toString();
            EXPECT_TRUE(!text && error.contains(expected)) << qPrintable(error);
        } else {
            EXPECT_TRUE(text) << qPrintable(error);
            EXPECT_EQ(text.value_or(QString()), row.value("expected").toString());
        }
    }
}

TEST(ScriptInterpreter, TellsWhyAScriptFails)
{
    QString message;
    const auto interpreter = corvane::ScriptInterpreter::start(&message);
    ASSERT_TRUE(interpreter) << qPrintable(message);
    const std::pair<const char*, const char*> scripts[] = {
        {"syntax error here", "Expected token"},
        {"throw new Error('out of cheese')", "out of cheese"},
        {"throw 'a plain text'", "a plain text"},
        {"undefinedFunction()", "undefinedFunction is not defined"},
    };
    for (const auto& [script, words] : scripts) {
        message.clear();
        EXPECT_FALSE(interpreter->run(script, &message)) << script;
        EXPECT_TRUE(message.contains(words)) << qPrintable(message);
    }
}

} // namespace
