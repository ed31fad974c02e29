#include "definition/schema_file.h"

#include "host/whole_file.h"

namespace vantrel::report {

QString compiledInSchema()
{
    return QStringLiteral(":/vantrel/custom/validation.xsd");
}

bool readSchemaFile(const QString& path, SchemaFile* schema, QString* error)
{
    if (!readWholeFile(path, "Schema file", &schema->text, error))
        return false;
    schema->path = path;
    // Each pair of markers becomes one comment around all that stands between them.
    schema->text.replace("<!-- Begin unique ID constraints -->",
                         "<!-- Begin unique ID constraints");
    schema->text.replace("<!-- End unique ID constraints -->", "End unique ID constraints -->");
    return true;
}

} // namespace vantrel::report
