#include "definition/schema/schema_acceptance.h"

#include "definition/compiled_in_schema.h"
#include "definition/schema/schema_file.h"

#include <QObject>
#include <QXmlStreamReader>

#include <libxml/parser.h>
#include <libxml/xmlschemas.h>

#include <memory>
#include <new>

namespace vantrel::report {

namespace {

template <auto function>
struct CallOf {
    template <typename Object>
    void operator()(Object* object) const
    {
        function(object);
    }
};

using ParserContext = std::unique_ptr<xmlParserCtxt, CallOf<&xmlFreeParserCtxt>>;
using Document = std::unique_ptr<xmlDoc, CallOf<&xmlFreeDoc>>;
using SchemaParser = std::unique_ptr<xmlSchemaParserCtxt, CallOf<&xmlSchemaFreeParserCtxt>>;
using Validator = std::unique_ptr<xmlSchemaValidCtxt, CallOf<&xmlSchemaFreeValidCtxt>>;

/// Where messages go.
struct Messages {
    bool isMemoryOut = false;
    const QUrl* place = nullptr; ///< of the document; null if the words aren't wanted
    QString text;
};

void takeMessage(void* data, xmlErrorPtr message)
{
    auto* const messages = static_cast<Messages*>(data);
    if (message->code == XML_ERR_NO_MEMORY)
        messages->isMemoryOut = true;
    if (!messages->place)
        return;
    if (!messages->text.isEmpty())
        messages->text += QLatin1String("\n\n");
    messages->text +=
        QObject::tr("%1 at line %2 column %3. %4")
            .arg(messages->place->toString(), QString::number(message->line),
                 QString::number(message->int2), QString::fromUtf8(message->message).trimmed());
}

void takeParserMessage(void* context, xmlErrorPtr message)
{
    takeMessage(static_cast<xmlParserCtxt*>(context)->_private, message);
}

/// A failed allocation says nothing about a document.
template <typename Pointer>
Pointer orMemoryOut(Pointer pointer)
{
    if (!pointer)
        throw std::bad_alloc();
    return pointer;
}

void throwIfMemoryOut(const Messages& messages)
{
    if (messages.isMemoryOut)
        throw std::bad_alloc();
}

/// The host may use libxml2 too, so its last error and its handler in this thread are put back. In
/// the meantime messages that belong to no context, such as those of memory, are taken too.
class ErrorsOfHost {
public:
    explicit ErrorsOfHost(Messages* messages)
    {
        if (auto* const last = xmlGetLastError())
            xmlCopyError(last, &kept);
        xmlSetStructuredErrorFunc(messages, takeMessage);
    }
    ~ErrorsOfHost()
    {
        xmlSetStructuredErrorFunc(context, handler);
        xmlResetLastError();
        if (kept.code != XML_ERR_OK)
            xmlCopyError(&kept, &xmlLastError);
        xmlResetError(&kept);
    }
    ErrorsOfHost(const ErrorsOfHost&) = delete;
    ErrorsOfHost& operator=(const ErrorsOfHost&) = delete;

private:
    xmlError kept = {};
    const xmlStructuredErrorFunc handler = xmlStructuredError;
    void* const context = xmlStructuredErrorContext;
};

xmlSchema* parseSchema()
{
    SchemaFile file;
    if (!readSchemaFile(compiledInSchema(), &file, nullptr))
        return nullptr;
    // Numbers beyond this type go to Qt, which ends at another place than libxml2 does.
    file.text.replace("xs:nonNegativeInteger", "xs:unsignedInt");
    const SchemaParser parser(
        orMemoryOut(xmlSchemaNewMemParserCtxt(file.text.constData(), file.text.size())));
    Messages messages;
    const ErrorsOfHost errors(&messages);
    xmlSchemaSetParserStructuredErrors(parser.get(), takeMessage, &messages);
    xmlSchema* const schema = xmlSchemaParse(parser.get());
    throwIfMemoryOut(messages);
    return schema;
}

/// Parsed once and kept until the process ends. Null if that fails, but for lack of memory.
xmlSchema* libxmlSchema()
{
    static xmlSchema* const schema = parseSchema();
    return schema;
}

/// Whether it is text of XML 1.0 in UTF-8. Qt takes no other version, and other encodings can make
/// a library load conversion tables.
bool isPlainXml(const QByteArray& xml)
{
    constexpr int longestDeclaration = 200;
    QXmlStreamReader header(xml.left(longestDeclaration));
    if (header.readNext() != QXmlStreamReader::StartDocument)
        return false;
    const QStringRef version = header.documentVersion();
    const QStringRef encoding = header.documentEncoding();
    return (version.isEmpty() || version == QLatin1String("1.0")) &&
           (encoding.isEmpty() ||
            encoding.compare(QLatin1String("UTF-8"), Qt::CaseInsensitive) == 0);
}

/// Whether libxml2 may judge the text: one that it surely reads as Qt does.
bool isForLibxml(const QByteArray& xml)
{
    // Qt wants each xml:id to differ from all others.
    return isPlainXml(xml) && !xml.contains("<!DOCTYPE") && !xml.contains("xml:id");
}

/// The parsed document; null unless it is well-formed and all of it is in the text.
Document parse(const QByteArray& xml, Messages* messages)
{
    const ParserContext context(orMemoryOut(xmlNewParserCtxt()));
    context->sax->serror = takeParserMessage;
    context->_private = messages;
    context->keepBlanks = 1;
    // The caller has checked the depth, and there are no entities, so texts may have any length.
    constexpr int options = XML_PARSE_NONET | XML_PARSE_NOERROR | XML_PARSE_NOWARNING |
                            XML_PARSE_HUGE | XML_PARSE_OLD10;
    Document document(
        xmlCtxtReadMemory(context.get(), xml.constData(), xml.size(), nullptr, "UTF-8", options));
    throwIfMemoryOut(*messages);
    if (context->errNo == XML_ERR_NO_MEMORY)
        throw std::bad_alloc();
    if (!document || !context->nsWellFormed || context->errNo != XML_ERR_OK || document->intSubset)
        return nullptr;
    // With these attributes a document brings schemas and types of its own.
    const xmlChar* instance = BAD_CAST "http://www.w3.org/2001/XMLSchema-instance";
    return xmlDictExists(context->dict, instance, -1) ? nullptr : std::move(document);
}

bool judge(const QByteArray& xml, Messages* messages)
{
    // Without it two threads can make libxml2's locks at once.
    static const bool isReady = (xmlInitParser(), true);
    Q_UNUSED(isReady)
    const ErrorsOfHost errors(messages);
    xmlSchema* const schema = libxmlSchema();
    const Document document = schema ? parse(xml, messages) : nullptr;
    if (!document)
        return false;
    const Validator validator(orMemoryOut(xmlSchemaNewValidCtxt(schema)));
    xmlSchemaSetValidStructuredErrors(validator.get(), takeMessage, messages);
    const int verdict = xmlSchemaValidateDoc(validator.get(), document.get());
    throwIfMemoryOut(*messages);
    return verdict == 0;
}

} // namespace

bool schemaAccepts(const QByteArray& xml)
{
    Messages messages;
    return isForLibxml(xml) && judge(xml, &messages);
}

QString schemaComplaints(const QByteArray& xml, const QUrl& url)
{
    Messages messages;
    messages.place = &url;
    if (isForLibxml(xml))
        judge(xml, &messages);
    return messages.text;
}

} // namespace vantrel::report
