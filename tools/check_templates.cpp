// Parses each compiled-in template, and runs each script, in the interpreter. Run by the build.
#include "render/report_renderer.h"
#include "render/resources.h"
#include "render/script_interpreter.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTextStream>

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    QTextStream err(stderr);
    QString message;
    const auto interpreter = corvane::ScriptInterpreter::start(&message);
    if (!interpreter) {
        err << message << '\n';
        return 1;
    }
    int failures = 0;
    const QDir root(vantrel::resourceRoot());
    const QStringList templates =
        root.entryList({QStringLiteral("*emplate.*"), QStringLiteral("text_*.txt")});
    for (const QString& name : templates) {
        QFile file(root.filePath(name));
        const QString format =
            name.endsWith(QLatin1String(".html")) ? QStringLiteral("html") : QStringLiteral("text");
        message = QString();
        file.open(QIODevice::ReadOnly);
        if (!interpreter->registerPartial(QFileInfo(name).baseName(), format,
                                          QString::fromUtf8(file.readAll()), &message)) {
            err << name << ": " << message << '\n';
            ++failures;
        }
    }
    QFile script(vantrel::resourcePath(QStringLiteral("vantrel.js")));
    script.open(QIODevice::ReadOnly);
    if (!interpreter->run(QString::fromUtf8(script.readAll()), &message)) {
        err << "vantrel.js: " << message << '\n';
        ++failures;
    }
    if (templates.size() != 16) {
        err << "there are " << templates.size() << " templates\n";
        ++failures;
    }
    return failures == 0 ? 0 : 1;
}
