#include "definition/schema_acceptance.h"

#include "definition/schema_file.h"

#include <QXmlStreamReader>

#include <libxml/parser.h>
#include <libxml/xmlschemas.h>

#include <memory>

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

/// Without a handler of a context, messages go to the one that the host may have set.
void ignoreMessage(void*, xmlErrorPtr) {}

/// The host may use libxml2 too, so its last error in this thread is put back.
class LastErrorKeeper {
public:
    LastErrorKeeper()
    {
        if (auto* const last = xmlGetLastError())
            xmlCopyError(last, &kept);
    }
    ~LastErrorKeeper()
    {
        xmlResetLastError();
        if (kept.code != XML_ERR_OK)
            xmlCopyError(&kept, &xmlLastError);
        xmlResetError(&kept);
    }
    LastErrorKeeper(const LastErrorKeeper&) = delete;
    LastErrorKeeper& operator=(const LastErrorKeeper&) = delete;

private:
    xmlError kept = {};
};

/// Parsed once and kept until the process ends; null if that fails.
xmlSchema* keptSchema()
{
    static xmlSchema* const schema = []() -> xmlSchema* {
        xmlInitParser();
        SchemaFile file;
        if (!readSchemaFile(compiledInSchema(), &file, nullptr))
            return nullptr;
        // Numbers beyond this type go to Qt, which ends at another place than libxml2 does.
        file.text.replace("xs:nonNegativeInteger", "xs:unsignedInt");
        const SchemaParser parser(
            xmlSchemaNewMemParserCtxt(file.text.constData(), file.text.size()));
        if (!parser)
            return nullptr;
        xmlSchemaSetParserStructuredErrors(parser.get(), ignoreMessage, nullptr);
        return xmlSchemaParse(parser.get());
    }();
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

/// The parsed document; null unless it is well-formed and all of it is in the text.
Document parse(const QByteArray& xml)
{
    const ParserContext context(xmlNewParserCtxt());
    if (!context)
        return nullptr;
    context->sax->serror = ignoreMessage;
    context->keepBlanks = 1;
    // The caller has checked the depth, and there are no entities, so texts may have any length.
    constexpr int options = XML_PARSE_NONET | XML_PARSE_NOERROR | XML_PARSE_NOWARNING |
                            XML_PARSE_HUGE | XML_PARSE_OLD10;
    Document document(
        xmlCtxtReadMemory(context.get(), xml.constData(), xml.size(), nullptr, "UTF-8", options));
    if (!document || !context->nsWellFormed || context->errNo != XML_ERR_OK || document->intSubset)
        return nullptr;
    // With these attributes a document brings schemas and types of its own.
    const xmlChar* instance = BAD_CAST "http://www.w3.org/2001/XMLSchema-instance";
    return xmlDictExists(context->dict, instance, -1) ? nullptr : std::move(document);
}

} // namespace

bool schemaAccepts(const QByteArray& xml)
{
    // Qt wants each xml:id to differ from all others.
    if (!isPlainXml(xml) || xml.contains("<!DOCTYPE") || xml.contains("xml:id"))
        return false;
    const LastErrorKeeper keeper;
    xmlSchema* const schema = keptSchema();
    const Document document = schema ? parse(xml) : nullptr;
    const Validator validator(document ? xmlSchemaNewValidCtxt(schema) : nullptr);
    if (!validator)
        return false;
    xmlSchemaSetValidStructuredErrors(validator.get(), ignoreMessage, nullptr);
    return xmlSchemaValidateDoc(validator.get(), document.get()) == 0;
}

} // namespace vantrel::report
