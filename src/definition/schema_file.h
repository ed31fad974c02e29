#pragma once

#include <QByteArray>
#include <QString>

namespace vantrel::report {

/// Path of the schema that is compiled in.
constexpr char compiledInSchemaPath[] = ":/vantrel/custom/validation.xsd";
inline QString compiledInSchema()
{
    return QString::fromLatin1(compiledInSchemaPath);
}

struct SchemaFile {
    QString path;
    QByteArray text; ///< without the identity constraints
};

/// Reads a schema and takes its identity constraints out.
///
/// @return false, with a message in @p error, which may be null
bool readSchemaFile(const QString& path, SchemaFile* schema, QString* error);

} // namespace vantrel::report
