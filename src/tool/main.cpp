// The command-line tool.
#include "api/process_setup.h"
#include "host/installation_paths.h"
#include "tool/command_line.h"
#include "tool/findings.h"
#include "tool/near_name.h"

#include <QCoreApplication>
#include <QDir>

namespace {

/// The root of what the library reads lies beside the program, wherever that was moved to.
void setInstallationRoot()
{
    const QDir own(QCoreApplication::applicationDirPath());
    vantrel::InstallationPaths::instance()->setAllDirectories(
        QDir::cleanPath(own.filePath(QStringLiteral(VANTREL_DATA_FROM_PROGRAM))));
}

/// The parser would only say that there is no command.
bool hasUnknownCommand(const CLI::App& app, const std::string& first)
{
    using namespace vantrel::tool;
    QStringList known;
    for (const CLI::App* command : app.get_subcommands(nullptr))
        known.append(textFrom(command->get_name()));
    if (first.empty() || first.front() == '-' || known.contains(textFrom(first)))
        return false;
    Finding finding = fileError(textFrom(app.get_name()),
                                QStringLiteral("there is no command '%1'").arg(textFrom(first)));
    finding.suggestion = nearName(textFrom(first), known);
    printFindings({finding});
    return true;
}

} // namespace

int main(int argc, char** argv)
{
    using namespace vantrel::tool;
    ExitCode result = Done;
    const std::unique_ptr<CLI::App> commandLine = makeCommandLine(&result);
    const QCoreApplication application(argc, argv);
    setInstallationRoot();
    vantrel::setUpProcess();
    if (argc > 1 && hasUnknownCommand(*commandLine, argv[1]))
        return WrongUsage;
    try {
        commandLine->parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        return commandLine->exit(error) == 0 ? Done : WrongUsage;
    }
    return result;
}
