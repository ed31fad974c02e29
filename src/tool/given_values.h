#pragma once

#include "api/custom_report.h"
#include "tool/exit_code.h"
#include "tool/value_names.h"

#include <QStringList>

/// Values of a run as people give them: in files and as "NAME=VALUE" on the command line.
namespace vantrel::tool {

/// Takes the values of a file: a metric data file, or one object from names to values. "-" is the
/// standard input. What is wrong is told, all of it.
ExitCode takeValueFile(const QString& path, const ValueNames& names, CustomReport* report);

/// Takes "NAME=VALUE".
ExitCode takeSetting(const QString& setting, const ValueNames& names, CustomReport* report);

/// Takes "WHERE=TEXT" as advice: WHERE is "dominant", or the id of a summary entry or a section.
ExitCode takeAdvice(const QString& setting, CustomReport* report);

/// Tells which values the report still needs, in one message.
ExitCode checkMissingValues(const QString& file, const ValueNames& names,
                            const CustomReport& report);

} // namespace vantrel::tool
