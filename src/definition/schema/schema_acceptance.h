#pragma once

#include <QByteArray>
#include <QString>
#include <QUrl>

namespace vantrel::report {

/// Whether the compiled-in schema surely accepts the document. Fast and silent; starts no thread
/// and opens no file. False also for documents in whose reading XML libraries may differ.
bool schemaAccepts(const QByteArray& xml);

/// What is wrong with the document in libxml2's words, one message a paragraph. Empty for a
/// document that it isn't asked about.
QString schemaComplaints(const QByteArray& xml, const QUrl& url);

} // namespace vantrel::report
