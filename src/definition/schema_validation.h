#pragma once

#include <QByteArray>
#include <QString>
#include <QUrl>

namespace vantrel::report {

/// Checks the shape of a definition document before it is read.
///
/// There is no check yet: each document goes on to the reader, which tests everything but
/// well-formedness and the elements of markup.
///
/// @return false, with the words in @p error, if the document is refused
bool validateDefinition(const QByteArray& xml, const QUrl& url, const QString& schemaPath,
                        QString* error, int messageMode);

} // namespace vantrel::report
