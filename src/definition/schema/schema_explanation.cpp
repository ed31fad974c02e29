#include "definition/schema/schema_explanation.h"

#include "definition/framed_message.h"
#include "definition/schema/explainer_module.h"
#include "definition/schema/schema_acceptance.h"
#include "definition/schema/text_limits.h"
#include "host/error_message.h"
#include "host/loaded_module.h"
#include "host/process_end.h"

#include <QObject>
#include <QXmlStreamReader>

#include <mutex>

namespace vantrel::report {

namespace {

void collectNames(const QXmlStreamReader& reader, QSet<QString>* names)
{
    const auto add = [names](const QStringRef& name) { names->insert(name.toString()); };
    add(reader.name());
    add(reader.prefix());
    add(reader.processingInstructionTarget());
    for (const QXmlStreamNamespaceDeclaration& declaration : reader.namespaceDeclarations()) {
        add(declaration.prefix());
        add(declaration.namespaceUri());
    }
    for (const QXmlStreamAttribute& attribute : reader.attributes()) {
        add(attribute.name());
        add(attribute.prefix());
        // The value can be the name of a type.
        if (attribute.name() == QLatin1String("type") && !attribute.prefix().isEmpty())
            add(attribute.value());
    }
}

/// Looks at what the text's bytes alone don't tell, such as elements inside of entities.
bool checkTokens(const QByteArray& xml, const QUrl& url, QSet<QString>* names, QString* error)
{
    QXmlStreamReader reader(xml);
    const auto failHere = [&](const QString& message) {
        return fail(error, framedMessage(errorFrame, url, reader.lineNumber(),
                                         reader.columnNumber(), message));
    };
    for (int level = 0; !reader.atEnd();) {
        const QXmlStreamReader::TokenType token = reader.readNext();
        level +=
            (token == QXmlStreamReader::StartElement) - (token == QXmlStreamReader::EndElement);
        if (level > maxNesting)
            return failHere(tooDeepMessage());
        collectNames(reader, names);
        if (names->size() > maxNamesOfValidator)
            return failHere(
                QObject::tr("There are more than %1 different names").arg(maxNamesOfValidator));
    }
    return true;
}

/// The module's function; null if it can't be opened, which is tried anew each time.
Explainer* openExplainer(bool* hasOwnValidator)
{
    static std::mutex mutex;
    static Explainer* function = nullptr;
    static bool isOwn = false;
    const std::lock_guard<std::mutex> lock(mutex);
    if (!function) {
        isOwn = !isLoaded("libQt5XmlPatterns.so.5");
        function = reinterpret_cast<Explainer*>(moduleFunction(explainerModule, explainerFunction));
    }
    *hasOwnValidator = isOwn;
    return function;
}

QString refusalWithoutModule(const QByteArray& xml, const QUrl& url)
{
    const QString complaints = schemaComplaints(xml, url);
    if (complaints.isEmpty()) {
        return QObject::tr("%1 can't be checked. It has a document type, another encoding than "
                           "UTF-8 or attributes that bring types of their own, and the library's "
                           "module %2 can't be opened.")
            .arg(url.toString(), QLatin1String(explainerModule));
    }
    return complaints + QLatin1String("\n\n") +
           QObject::tr("(These are the words of libxml2: the library's module %1 can't be opened.)")
               .arg(QLatin1String(explainerModule));
}

} // namespace

bool explainSchemaFaults(const QByteArray& xml, const QUrl& url, const SchemaFile& schema,
                         QString* error, int messageMode)
{
    SchemaQuestion question;
    if (!checkTokens(xml, url, &question.names, error))
        return false;
    question.xml = xml;
    // Qt would give a document without an address that of the running program.
    question.url = url.isEmpty() ? QUrl(QStringLiteral("memory:definition")) : url;
    question.schema = schema;
    question.messageMode = messageMode;
    if (Explainer* const explain = openExplainer(&question.hasOwnValidator)) {
        const bool isValid = explain(question, error);
        static const bool noted = noteTablesOfQt();
        return isValid && noted;
    }
    return fail(error, refusalWithoutModule(xml, question.url));
}

} // namespace vantrel::report
