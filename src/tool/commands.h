#pragma once

#include "tool/exit_code.h"

namespace CLI {
class App;
}

/// The tool's commands. Each adds itself with its options to the command line, and leaves in
/// @p result what the tool returns if it is the one that is run.
namespace vantrel::tool {

void addRenderCommand(CLI::App& app, ExitCode* result);
void addListCommand(CLI::App& app, ExitCode* result);
void addRecordsCommand(CLI::App& app, ExitCode* result);
void addSchemaCommand(CLI::App& app, ExitCode* result);

} // namespace vantrel::tool
