#pragma once

#include <QByteArray>
#include <QString>

namespace vantrel {

/// Reads a file or a resource.
///
/// @param subject what messages call the file, such as "File"
/// @param error   takes the message, may be null
/// @return false if the file can't be read
bool readWholeFile(const QString& path, const char* subject, QByteArray* content, QString* error);

} // namespace vantrel
