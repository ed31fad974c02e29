#pragma once

#include "definition/schema/schema_file.h"

#include <QByteArray>
#include <QUrl>

namespace vantrel::report {

/// Lets Qt judge the document, through the module that is linked with its validator. Slow; the
/// messages are worth it. Without the module the document is refused in libxml2's words.
bool explainSchemaFaults(const QByteArray& xml, const QUrl& url, const SchemaFile& schema,
                         QString* error, int messageMode);

} // namespace vantrel::report
