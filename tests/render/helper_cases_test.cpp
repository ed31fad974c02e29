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

TEST(HelperCases, giveInTheInterpreterWhatTheTableSays)
{
    QString message;
    const auto interpreter = corvane::ScriptInterpreter::start(&message);
    ASSERT_TRUE(interpreter) << qPrintable(message);
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

} // namespace
