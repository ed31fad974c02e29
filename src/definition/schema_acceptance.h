#pragma once

#include <QByteArray>

namespace vantrel::report {

/// Whether the compiled-in schema surely accepts the document. Fast and silent; starts no thread
/// and opens no file. False also for documents in whose reading XML libraries may differ.
bool schemaAccepts(const QByteArray& xml);

} // namespace vantrel::report
