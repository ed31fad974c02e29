// The module that lets Qt's validator judge a document.
#include "definition/compiled_in_schema.h"
#include "definition/schema/explainer_module.h"
#include "definition/schema/quiet_network.h"
#include "definition/schema/schema_messages.h"
#include "host/error_message.h"

#include <QObject>
#include <QXmlSchema>
#include <QXmlSchemaValidator>

#include <memory>
#include <mutex>

namespace vantrel::report {

namespace {

/// A schema as Qt knows it, with what it must not do without.
class QtSchema {
public:
    QtSchema(const SchemaFile& file, QNetworkAccessManager* manager)
        : printer(schema.messageHandler())
    {
        schema.setMessageHandler(&silence);
        schema.setNetworkAccessManager(manager);
        schema.load(file.text, QUrl::fromLocalFile(file.path));
    }
    bool isValid() const { return schema.isValid(); }

    bool accepts(const SchemaQuestion& question, QString* error)
    {
        MessageHandler handler(error, question.messageMode == 1 ? printer : nullptr);
        QXmlSchemaValidator validator(schema);
        validator.setMessageHandler(&handler);
        validator.setNetworkAccessManager(schema.networkAccessManager());
        return validator.validate(question.xml, question.url);
    }

    /// Makes room for the names of a document; false if there is none.
    bool reserve(const QSet<QString>& more)
    {
        names.unite(more);
        return names.size() <= maxNamesOfValidator;
    }

private:
    MessageHandler silence{nullptr, nullptr};
    QXmlSchema schema;
    QAbstractMessageHandler* printer; ///< what Qt would report to by itself
    QSet<QString> names;
};

/// A schema never gives all of its memory back, so the compiled-in one is kept as long as its
/// numbers last.
QtSchema* reusableSchema(const SchemaQuestion& question, QNetworkAccessManager* manager)
{
    static QtSchema* kept = nullptr;
    if (!kept || !kept->reserve(question.names)) {
        delete kept;
        kept = nullptr;
        kept = new QtSchema(question.schema, manager);
        kept->reserve(question.names);
    }
    return kept;
}

bool explain(const SchemaQuestion& question, QString* error)
{
    clearError(error);
    // Qt's tables of names are shared, so one at a time.
    static std::mutex mutex;
    const std::lock_guard<std::mutex> lock(mutex);
    const QuietNetwork network(question.hasOwnValidator);
    if (!network.isPossible())
        return fail(error, QObject::tr("The definition can't be checked: no descriptors are left"));
    std::unique_ptr<QtSchema> own;
    if (question.schema.path != compiledInSchema())
        own = std::make_unique<QtSchema>(question.schema, network.manager());
    QtSchema* const judge = own ? own.get() : reusableSchema(question, network.manager());
    if (!judge->isValid())
        return fail(error, QObject::tr("Schema file '%1' is not valid").arg(question.schema.path));
    return judge->accepts(question, error);
}

} // namespace

} // namespace vantrel::report

extern "C" __attribute__((visibility("default"))) bool
vantrel_explain_1(const vantrel::report::SchemaQuestion& question, QString* error)
{
    return vantrel::report::explain(question, error);
}
