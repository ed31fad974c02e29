#pragma once

#include "definition/report_definition.h"
#include "tool/exit_code.h"

#include <QStringList>

namespace vantrel::tool {

/// The files that make one definition.
struct DefinitionFiles {
    QString definition; ///< empty for the installed default definition
    QStringList partials;
};

/// Loads them. What is wrong with them is told.
ExitCode loadDefinition(const DefinitionFiles& files, report::ReportDefinition* definition);

} // namespace vantrel::tool
