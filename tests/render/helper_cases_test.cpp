// Runs the table of helper cases in the interpreter. The browser runs the same table.
#include "render/resources.h"
#include "render/script_interpreter.h"

#include <QFile>
#include <QRegExp>

#include <gtest/gtest.h>

namespace {

QString readAll(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

std::unique_ptr<corvane::ScriptInterpreter> startInterpreter()
{
    QString message;
    auto interpreter = corvane::ScriptInterpreter::start(&message);
    EXPECT_TRUE(interpreter) << qPrintable(message);
    return interpreter;
}

TEST(HelperCases, giveInTheInterpreterWhatTheTableSays)
{
    const auto interpreter = startInterpreter();
    QString message;
    for (const QString& script :
         {vantrel::resourcePath("vantrel.js"), QString(TEST_SOURCE_DIR "/page/run_cases.js")})
        ASSERT_TRUE(interpreter->run(readAll(script), &message)) << qPrintable(message);
    interpreter->run(
        "ReportEngine.render = function (name, format, table) {"
        "    return failingCases(table).concat('of ' + casesOf(table).length).join('\\n');"
        "};",
        &message);
    const QString table = readAll(TEST_SOURCE_DIR "/page/helper_cases.json");
    const QString failing =
        interpreter->render(QString(), QString(), table, &message).value_or(QString());
    EXPECT_TRUE(QRegExp("of \\d{3}").exactMatch(failing)) << qPrintable(failing + message);
}

TEST(ScriptInterpreter, TellsWhyAScriptFails)
{
    const auto interpreter = startInterpreter();
    const std::pair<const char*, const char*> scripts[] = {
        {"syntax error here", "Expected token"},
        {"throw new Error('out of cheese')", "out of cheese"},
        {"throw 'a plain text'", "a plain text"},
        {"undefinedFunction()", "undefinedFunction is not defined"},
    };
    for (const auto& [script, words] : scripts) {
        QString message;
        EXPECT_FALSE(interpreter->run(script, &message)) << script;
        EXPECT_TRUE(message.contains(words)) << qPrintable(message);
    }
}

} // namespace
