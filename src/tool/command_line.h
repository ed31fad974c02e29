#pragma once

#include "tool/exit_code.h"

#include <CLI/CLI.hpp>

#include <QString>
#include <QStringList>

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

QStringList textsFrom(const std::vector<std::string>& arguments);

} // namespace vantrel::tool
