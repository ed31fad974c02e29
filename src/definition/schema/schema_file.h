#pragma once

#include <QByteArray>
#include <QString>

namespace vantrel::report {

struct SchemaFile {
    QString path;
    QByteArray text; ///< without the identity constraints
};

/// Reads a schema and takes its identity constraints out.
bool readSchemaFile(const QString& path, SchemaFile* schema, QString* error);

} // namespace vantrel::report
