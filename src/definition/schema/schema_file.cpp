#include "definition/schema/schema_file.h"
#include "definition/compiled_in_schema.h"

#include "host/whole_file.h"

#include <memory>

namespace vantrel::report {

namespace {

constexpr FileMessages schemaFileMessages{
    "Schema file '%1' does not exist",
    "Schema file '%1' could not be opened for reading",
    "Schema file '%1' is not readable",
};

bool readFile(const QString& path, SchemaFile* schema, QString* error)
{
    if (!readWholeFile(path, schemaFileMessages, &schema->text, error))
        return false;
    schema->path = path;
    // Each pair of markers becomes one comment around all that stands between them.
    schema->text.replace("<!-- Begin unique ID constraints -->",
                         "<!-- Begin unique ID constraints");
    schema->text.replace("<!-- End unique ID constraints -->", "End unique ID constraints -->");
    return true;
}

} // namespace

bool readSchemaFile(const QString& path, SchemaFile* schema, QString* error)
{
    if (path != compiledInSchema())
        return readFile(path, schema, error);
    // Read once: reports are made with no file of Qt's open.
    static const auto& compiledIn = *[] {
        auto file = std::make_unique<SchemaFile>();
        readFile(compiledInSchema(), file.get(), nullptr);
        return file.release();
    }();
    *schema = compiledIn;
    return true;
}

} // namespace vantrel::report
