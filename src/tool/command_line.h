#pragma once

#include "tool/definition_files.h"
#include "tool/exit_code.h"

#include <CLI/CLI.hpp>

#include <QString>

#include <memory>
#include <string>
#include <vector>

namespace vantrel::tool {

/// All commands with their options. The exit code of the one that is run goes to @p result.
std::unique_ptr<CLI::App> makeCommandLine(ExitCode* result);

/// Arguments are UTF-8, whatever the locale.
inline QString textFrom(const std::string& argument)
{
    return QString::fromStdString(argument);
}

/// The definition that a command works on, as it is given.
struct DefinitionOptions {
    std::string definition;
    std::vector<std::string> partials;
};
void addDefinitionOptions(CLI::App* command, DefinitionOptions* options);
DefinitionFiles filesOf(const DefinitionOptions& options);

} // namespace vantrel::tool
