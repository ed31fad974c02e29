// Reads a definition document, full or partial, from its root to the three sections.
#include "definition/reading/definition_reader.h"

#include "definition/builtin_metrics.h"
#include "definition/reading/section_readers.h"
#include "definition/site_addresses.h"

#include <QObject>

namespace vantrel::report {

namespace {

QString textOr(const QString& text, const QString& fallback)
{
    return text.isEmpty() ? fallback : text;
}

bool expectRoot(XmlSource& xml, const char* name)
{
    return xml.elementName() == QLatin1String(name) ||
           xml.fail(QObject::tr("Expected '%1' as the root element, got '%2'")
                        .arg(QString::fromLatin1(name), xml.elementName().toString()));
}

bool readRootAttributes(ReportDefinition& definition, XmlSource& xml)
{
    QString name;
    QString logo;
    QString logoLink;
    if (!xml.readString("name", XmlSource::Required, &name) ||
        !xml.readString("logo", XmlSource::Optional, &logo) ||
        !xml.readString("logoLink", XmlSource::Optional, &logoLink))
        return false;
    definition.setName(name);
    definition.setLogo(textOr(logo, defaultLogo()));
    definition.setLogoLink(textOr(logoLink, defaultLogoLink()));
    return true;
}

bool readFullReport(ReportDefinition& definition, XmlSource& xml)
{
    definition.clearContent();
    definition.setUrl(xml.url());
    // The attributes come first: a wrong root without a name is told that it lacks the name.
    if (!readRootAttributes(definition, xml) || !expectRoot(xml, "report"))
        return false;
    xml.readNextStart();
    if (!readMetrics(definition, xml))
        return false;
    xml.readNextStart();
    if (!readSummary(definition, xml, FullReport))
        return false;
    xml.readNextStart();
    return readSubsections(definition, xml);
}

/// The sections are optional but stand in their order. What stands elsewhere isn't read.
bool readPartialSections(ReportDefinition& definition, XmlSource& xml)
{
    xml.readNextStart();
    if (xml.elementName() == QLatin1String("reportMetrics")) {
        if (!readMetrics(definition, xml))
            return false;
        xml.readNextStart();
    }
    if (xml.elementName() == QLatin1String("summary")) {
        if (!readSummary(definition, xml, PartialReport))
            return false;
        xml.readNextStart();
    }
    return xml.elementName() != QLatin1String("subsections") || readSubsections(definition, xml);
}

bool readPartialReport(ReportDefinition& definition, XmlSource& xml)
{
    QString name;
    if (!xml.readString("name", XmlSource::Required, &name))
        return false;
    definition.setLogo(defaultLogo());
    definition.setLogoLink(defaultLogoLink());
    if (!expectRoot(xml, "partialReport") || !readPartialSections(definition, xml))
        return false;
    definition.addPartialReport(name, xml.url());
    return true;
}

} // namespace

bool readDefinition(ReportDefinition& definition, XmlSource& xml, DocumentKind kind)
{
    xml.readNextStart();
    return kind == PartialReport ? readPartialReport(definition, xml)
                                 : readFullReport(definition, xml);
}

bool checkNewId(const ReportDefinition& definition, XmlSource& xml, const QString& id)
{
    if (definition.idScheme().reservesCorvaneIds &&
        (id.startsWith(QLatin1String("corvane.")) || id.startsWith(QLatin1String("com.corvane."))))
        return xml.fail(QObject::tr("The id=\"%1\" is reserved.").arg(id));
    if (id.count(u'.') >= maxPathParts) {
        return xml.fail(QObject::tr("The id=\"%1\" has more than %2 parts.")
                            .arg(id, QString::number(maxPathParts)));
    }
    return true;
}

bool checkMetricExists(const ReportDefinition& definition, XmlSource& xml, const QString& id)
{
    return definition.hasMetric(id) ||
           xml.fail(QObject::tr("There is no metric with id=\"%1\" in this report").arg(id));
}

bool checkRequires(const ReportDefinition& definition, XmlSource& xml, QString* out)
{
    if (!xml.readString("requires", XmlSource::Optional, out))
        return false;
    if (out->isEmpty())
        return true;
    const QString id = out->startsWith(u'!') ? out->mid(1) : *out;
    return definition.hasMetric(id) || isBuiltinMetric(id) ||
           checkMetricExists(definition, xml, id);
}

void readDescription(XmlSource& xml, QString* description)
{
    if (!xml.readNextStart())
        return;
    if (xml.elementName() == QLatin1String("description"))
        *description = xml.readMarkup();
    else
        xml.skipElement();
    xml.skipElement();
}

bool failAgainstSources(const ReportDefinition& definition, XmlSource& xml, const char* message,
                        const QString& id)
{
    return xml.fail(QObject::tr(message).arg(id) + definition.describeSources(8));
}

bool expectElement(XmlSource& xml, const char* name, const char* message)
{
    return xml.elementName() == QLatin1String(name) ||
           xml.fail(QObject::tr(message).arg(xml.elementName().toString()));
}

} // namespace vantrel::report
