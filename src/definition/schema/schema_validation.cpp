#include "definition/schema/schema_validation.h"

#include "definition/compiled_in_schema.h"
#include "definition/schema/schema_acceptance.h"
#include "definition/schema/schema_explanation.h"
#include "definition/schema/schema_file.h"
#include "definition/schema/text_limits.h"
#include "host/error_message.h"

#include <QObject>

namespace vantrel::report {

namespace {

const QString definitionNamespace =
    QStringLiteral("http://www.corvane.example/2016/CorvaneReports");

bool checkNamespace(const QByteArray& xml, const QUrl& url, QString* error)
{
    if (xml.indexOf("xmlns=\"" + definitionNamespace.toUtf8() + '"') >= 0)
        return true;
    const QString location = url.isEmpty() ? QString() : u' ' + url.toString();
    return fail(error,
                QObject::tr("The report definition XML%1 does not have the attribute xmlns=\"")
                        .arg(location) +
                    definitionNamespace +
                    QObject::tr("\" set in the <report> or <partialReport> element."));
}

} // namespace

bool validateDefinition(const QByteArray& xml, const QUrl& url, const QString& schemaPath,
                        QString* error, int messageMode)
{
    SchemaFile schema;
    if (!checkNamespace(xml, url, error) || !readSchemaFile(schemaPath, &schema, error) ||
        !checkNesting(xml, url, error))
        return false;
    if (schemaPath == compiledInSchema() && schemaAccepts(xml))
        return true;
    return explainSchemaFaults(xml, url, schema, error, messageMode);
}

} // namespace vantrel::report
