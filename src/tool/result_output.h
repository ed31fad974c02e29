#pragma once

#include "tool/exit_code.h"

#include <QByteArray>
#include <QString>

namespace vantrel::tool {

/// Writes a result to a file, whole or not at all, or to the standard output if @p path is empty.
/// Trouble is told.
ExitCode writeResult(const QString& path, const QByteArray& bytes);

} // namespace vantrel::tool
