#pragma once

#include <QByteArray>
#include <QString>

namespace vantrel {

/// What is said of a file that can't be read, with %1 in the place of its name.
struct FileMessages {
    const char* missing;
    const char* closed; ///< can't be opened
    const char* unreadable;
};

/// Reads a file or a resource.
///
/// @return false if the file can't be read
bool readWholeFile(const QString& path, const FileMessages& messages, QByteArray* content,
                   QString* error);

} // namespace vantrel
