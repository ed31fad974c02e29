#include "definition/schema_file.h"

#include <QFile>
#include <QObject>

namespace vantrel::report {

QString compiledInSchema()
{
    return QStringLiteral(":/vantrel/custom/validation.xsd");
}

bool readSchemaFile(const QString& path, SchemaFile* schema, QString* error)
{
    QFile file(path);
    const auto fail = [&](const char* message) {
        if (error)
            *error = QObject::tr(message).arg(file.fileName());
        return false;
    };
    if (!file.exists())
        return fail("Schema file '%1' does not exist");
    if (!file.open(QIODevice::ReadOnly))
        return fail("Schema file '%1' could not be opened for reading");
    if (!file.isReadable())
        return fail("Schema file '%1' is not readable");
    schema->path = file.fileName();
    schema->text = file.readAll();
    // Each pair of markers becomes one comment around all that stands between them.
    schema->text.replace("<!-- Begin unique ID constraints -->",
                         "<!-- Begin unique ID constraints");
    schema->text.replace("<!-- End unique ID constraints -->", "End unique ID constraints -->");
    return true;
}

} // namespace vantrel::report
