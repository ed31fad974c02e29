// Checks that the table of templates and the folder, its argument, hold the same, then parses each
// template, and runs the report's script, in the interpreter. Run by the build.
#include "render/report_templates.h"
#include "render/resources.h"
#include "render/script_interpreter.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QTextStream>

namespace {

const auto table = QStringLiteral("the table of render/report_templates.h");

/// One message for each template that is in one of the two only.
QStringList compareWithFolder(const QString& folder)
{
    QStringList messages;
    QStringList names = QDir(folder).entryList(QDir::Files);
    for (const vantrel::ReportTemplate& row : vantrel::reportTemplates) {
        const QString name = QLatin1String(row.file);
        if (!names.removeOne(name))
            messages += QStringLiteral("%1: in %2, not in %3").arg(name, table, folder);
    }
    for (const QString& name : names)
        messages += QStringLiteral("%1: in %2, not in %3").arg(name, folder, table);
    return messages;
}

QString compiledIn(const QString& name)
{
    return QString::fromUtf8(vantrel::resourceBytes(vantrel::resourcePath(name)));
}

QStringList tryAll(corvane::ScriptInterpreter& interpreter)
{
    QStringList messages;
    QString message;
    for (const vantrel::ReportTemplate& row : vantrel::reportTemplates) {
        const QString name = QLatin1String(row.file);
        const QString format = corvane::ReportFormat(row.format).scriptName();
        if (!interpreter.registerPartial(QFileInfo(name).baseName(), format, compiledIn(name),
                                         &message))
            messages += name + QLatin1String(": ") + message;
    }
    const QString script = QStringLiteral("vantrel.js");
    if (!interpreter.run(compiledIn(script), &message))
        messages += script + QLatin1String(": ") + message;
    return messages;
}

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    QStringList messages = compareWithFolder(application.arguments().value(1));
    QString message;
    const auto interpreter = corvane::ScriptInterpreter::start(&message);
    if (interpreter)
        messages += tryAll(*interpreter);
    else
        messages += message;
    QTextStream err(stderr);
    for (const QString& each : messages)
        err << each << '\n';
    return messages.isEmpty() ? 0 : 1;
}
