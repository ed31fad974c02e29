#pragma once

#include <QByteArray>
#include <QString>
#include <QUrl>

namespace vantrel::report {

/// Checks the shape of a definition document before it is read: that it is well-formed, its
/// elements, their nesting and the types of attributes. Ids and references are left to the reader.
///
/// A document that the compiled-in schema accepts starts no thread and opens no file.
///
/// @param schemaPath  a file or a resource. The compiled-in schema is parsed once in a process, any
///                    other at each call.
/// @param error       all of the check's messages, with an empty line between them
/// @param messageMode 1 to hand the messages to Qt's own handler as well, else 0
/// @return false if the document is refused
bool validateDefinition(const QByteArray& xml, const QUrl& url, const QString& schemaPath,
                        QString* error, int messageMode);

} // namespace vantrel::report
