// The schema of definitions, for editors.
#include "definition/compiled_in_schema.h"
#include "definition/default_definition.h"
#include "tool/command_line.h"
#include "tool/commands.h"
#include "tool/findings.h"
#include "tool/result_output.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QUrl>

namespace vantrel::tool {

namespace {

ExitCode print(const QString& path, const char* from, const QByteArray& to)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        printFindings(
            {fileError(path, QStringLiteral("can't be read: %1").arg(file.errorString()))});
        return FileTrouble;
    }
    return writeResult(QString(), file.readAll().replace(from, to));
}

/// The installed catalog names the schema beside it; where it is copied to, it needs the whole
/// path.
ExitCode printCatalog()
{
    const QString folder = report::reportTemplatesDirectory() + QLatin1String("../");
    const QString schema = QFileInfo(folder + QLatin1String("validation.xsd")).absoluteFilePath();
    return print(folder + QLatin1String("catalog.xml"), "validation.xsd",
                 QUrl::fromLocalFile(QDir::cleanPath(schema)).toEncoded());
}

} // namespace

void addSchemaCommand(CLI::App& app, ExitCode* result)
{
    CLI::App* const command = app.add_subcommand("schema", "Print the schema of definitions");
    auto wantsCatalog = std::make_shared<bool>(false);
    command->add_flag("--catalog", *wantsCatalog,
                      "Print the XML catalog that leads editors to the schema");
    command->footer("Example:\n  vantrel schema > report.xsd");
    command->callback([result, wantsCatalog] {
        *result =
            *wantsCatalog ? printCatalog() : print(report::compiledInSchema(), "\r", QByteArray());
    });
}

} // namespace vantrel::tool
