#include "definition/schema_explanation.h"

#include "definition/text_limits.h"
#include "definition/xml_source.h"

#include <QMetaMethod>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QObject>
#include <QSet>
#include <QSourceLocation>
#include <QXmlSchema>
#include <QXmlSchemaValidator>
#include <QXmlStreamReader>

#include <memory>
#include <mutex>

namespace vantrel::report {

namespace {

/// Qt numbers the names of a schema and of all documents checked with it, 511 namespaces at most,
/// and takes one name for another when it runs out of numbers.
constexpr int mostNames = 300;

/// The answer to every request: no. Qt would wait for a later answer in an event loop.
class Refusal : public QNetworkReply {
public:
    explicit Refusal(const QNetworkRequest& request)
    {
        setRequest(request);
        setUrl(request.url());
        setError(ContentAccessDenied, QObject::tr("A definition must be complete in itself"));
        setFinished(true);
    }
    void abort() override {}

protected:
    qint64 readData(char*, qint64) override { return -1; }
    void connectNotify(const QMetaMethod& signal) override
    {
        if (signal.name() == "error" || signal.name() == "errorOccurred")
            signal.invoke(this, Qt::DirectConnection, Q_ARG(QNetworkReply::NetworkError, error()));
    }
};

class RefusingManager : public QNetworkAccessManager {
protected:
    QNetworkReply* createRequest(Operation, const QNetworkRequest& request, QIODevice*) override
    {
        return new Refusal(request);
    }
};

/// A schema as Qt knows it, with what it must not do without.
class QtSchema {
public:
    explicit QtSchema(const SchemaFile& file) : printer(schema.messageHandler())
    {
        schema.setMessageHandler(&silence);
        schema.setNetworkAccessManager(&network);
        schema.load(file.text, QUrl::fromLocalFile(file.path));
    }
    bool isValid() const { return schema.isValid(); }

    bool accepts(const QByteArray& xml, const QUrl& url, QString* error, int messageMode)
    {
        MessageHandler handler(error, messageMode == 1 ? printer : nullptr);
        QXmlSchemaValidator validator(schema);
        validator.setMessageHandler(&handler);
        validator.setNetworkAccessManager(&network);
        return validator.validate(xml, url);
    }

    /// Makes room for the names of a document; false if there is none.
    bool reserve(const QSet<QString>& more)
    {
        names.unite(more);
        return names.size() <= mostNames;
    }

private:
    MessageHandler silence{nullptr, nullptr};
    RefusingManager network;
    QXmlSchema schema;
    QAbstractMessageHandler* printer; ///< what Qt would report to by itself
    QSet<QString> names;
};

/// Making a schema starts threads and never gives all of its memory back, so the compiled-in one
/// is kept as long as its numbers last.
QtSchema* keptSchema(const SchemaFile& file, const QSet<QString>& names)
{
    static QtSchema* kept = nullptr;
    if (!kept || !kept->reserve(names)) {
        delete kept;
        kept = new QtSchema(file);
        kept->reserve(names);
    }
    return kept;
}

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
    const auto fail = [&](const QString& message) {
        if (error)
            *error = framedMessage("Error in %1 at line %2 column %3: %4", url, reader.lineNumber(),
                                   reader.columnNumber(), message);
        return false;
    };
    for (int level = 0; !reader.atEnd();) {
        const QXmlStreamReader::TokenType token = reader.readNext();
        level +=
            (token == QXmlStreamReader::StartElement) - (token == QXmlStreamReader::EndElement);
        if (level > mostLevels)
            return fail(tooDeepMessage());
        collectNames(reader, names);
        if (names->size() > mostNames)
            return fail(QObject::tr("There are more than %1 different names").arg(mostNames));
    }
    return true;
}

QString plainText(const QString& markup)
{
    QXmlStreamReader reader(markup);
    QString text;
    while (!reader.atEnd()) {
        if (reader.readNext() == QXmlStreamReader::Characters)
            text += reader.text();
    }
    return text;
}

} // namespace

void MessageHandler::handleMessage(QtMsgType type, const QString& description,
                                   const QUrl& identifier, const QSourceLocation& sourceLocation)
{
    if (error) {
        if (!error->isEmpty())
            *error += QLatin1String("\n\n");
        *error += QObject::tr("%1 at line %2 column %3. %4")
                      .arg(sourceLocation.uri().toString(), QString::number(sourceLocation.line()),
                           QString::number(sourceLocation.column()), plainText(description));
    }
    if (chained)
        chained->message(type, description, identifier, sourceLocation);
}

bool explainWithQt(const QByteArray& xml, const QUrl& url, const SchemaFile& schema, QString* error,
                   int messageMode)
{
    QSet<QString> names;
    if (!checkTokens(xml, url, &names, error))
        return false;
    static std::mutex mutex;
    const std::lock_guard<std::mutex> lock(mutex);
    std::unique_ptr<QtSchema> own;
    if (schema.path != compiledInSchema())
        own = std::make_unique<QtSchema>(schema);
    QtSchema* const judge = own ? own.get() : keptSchema(schema, names);
    if (!judge->isValid()) {
        if (error)
            *error = QObject::tr("Schema file '%1' is not valid").arg(schema.path);
        return false;
    }
    return judge->accepts(xml, url, error, messageMode);
}

} // namespace vantrel::report
