#include "definition/reading/xml_source.h"

#include "host/error_message.h"

#include <QObject>
#include <QXmlStreamWriter>

namespace vantrel::report {

XmlSource::XmlSource(const QByteArray& xml, const QUrl& url, QString* messages)
    : reader(xml), location(url), error(messages)
{
    clearError(error);
}

void XmlSource::report(const char* frame, const QString& text)
{
    if (error)
        *error = framedMessage(frame, location, reader.lineNumber(), reader.columnNumber(), text);
}

bool XmlSource::fail(const QString& text)
{
    setError(text);
    return false;
}

bool XmlSource::readNextStart()
{
    for (;;) {
        switch (reader.readNext()) {
        case QXmlStreamReader::StartElement:
            return true;
        case QXmlStreamReader::EndElement:
        case QXmlStreamReader::Invalid:
        case QXmlStreamReader::NoToken:
            return false;
        default:
            break;
        }
    }
}

bool XmlSource::skipElement()
{
    for (int depth = 1; depth > 0;) {
        switch (reader.readNext()) {
        case QXmlStreamReader::StartElement:
            ++depth;
            break;
        case QXmlStreamReader::EndElement:
            --depth;
            break;
        case QXmlStreamReader::Invalid:
        case QXmlStreamReader::NoToken:
            return false;
        default:
            break;
        }
    }
    return true;
}

QString XmlSource::readMarkup()
{
    QString text;
    QXmlStreamWriter writer(&text);
    int depth = 0;
    for (;;) {
        switch (reader.readNext()) {
        case QXmlStreamReader::StartElement:
            writer.writeStartElement(reader.qualifiedName().toString());
            writer.writeAttributes(reader.attributes());
            ++depth;
            break;
        case QXmlStreamReader::EndElement:
            if (depth == 0)
                return text;
            writer.writeEndElement();
            --depth;
            break;
        case QXmlStreamReader::Characters:
            if (reader.isCDATA())
                writer.writeCDATA(reader.text().toString());
            else
                writer.writeCharacters(reader.text().toString());
            break;
        case QXmlStreamReader::Comment:
            writer.writeComment(reader.text().toString());
            break;
        case QXmlStreamReader::DTD:
            writer.writeDTD(reader.text().toString());
            break;
        case QXmlStreamReader::EntityReference:
            writer.writeEntityReference(reader.name().toString());
            break;
        case QXmlStreamReader::ProcessingInstruction:
            writer.writeProcessingInstruction(reader.processingInstructionTarget().toString(),
                                              reader.processingInstructionData().toString());
            break;
        case QXmlStreamReader::StartDocument:
            writer.writeStartDocument(reader.documentVersion().toString(),
                                      reader.isStandaloneDocument());
            break;
        case QXmlStreamReader::EndDocument:
            writer.writeEndDocument();
            return text;
        case QXmlStreamReader::Invalid:
        case QXmlStreamReader::NoToken:
            return text;
        }
    }
}

} // namespace vantrel::report
