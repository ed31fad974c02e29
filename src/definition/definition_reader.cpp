// Reads a definition document, full or partial, from its root to the three sections.
#include "definition/definition_reader.h"

#include "definition/schema_validation.h"
#include "definition/section_readers.h"
#include "definition/site_addresses.h"
#include "definition/text_limits.h"
#include "host/whole_file.h"
#include "metrics/builtin_metrics.h"

#include <QObject>

#include <memory>

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

/// Whether a text is worth reading.
bool checkDocument(const QByteArray& xml, const QUrl& url, const QString& schemaPath,
                   QString* error, int messageMode)
{
    if (error)
        error->clear();
    return checkTextLimits(xml, url, error) &&
           (schemaPath.isEmpty() || validateDefinition(xml, url, schemaPath, error, messageMode));
}

constexpr FileMessages documentFileMessages{
    "File '%1' does not exist",
    "File '%1' could not be opened for reading",
    "File '%1' is not readable",
};

bool readDocumentFile(const QString& path, QByteArray* xml, QString* error)
{
    if (error)
        error->clear();
    return readWholeFile(path, documentFileMessages, xml, error);
}

} // namespace

bool readDefinition(ReportDefinition& definition, XmlSource& xml, DocumentKind kind)
{
    xml.readNextStart();
    return kind == PartialReport ? readPartialReport(definition, xml)
                                 : readFullReport(definition, xml);
}

ReportDefinition* ReportDefinition::load(const QByteArray& xml, const QUrl& url,
                                         const QString& schemaPath, QString* error, int messageMode,
                                         const ReportIdScheme& scheme)
{
    if (!checkDocument(xml, url, schemaPath, error, messageMode))
        return nullptr;
    auto definition = std::make_unique<ReportDefinition>();
    definition->setIdScheme(scheme);
    XmlSource source(xml, url, error);
    return readDefinition(*definition, source, FullReport) ? definition.release() : nullptr;
}

ReportDefinition* ReportDefinition::loadFile(const QString& path, const QString& schemaPath,
                                             QString* error, int messageMode,
                                             const ReportIdScheme& scheme)
{
    QByteArray xml;
    if (!readDocumentFile(path, &xml, error))
        return nullptr;
    return load(xml, QUrl::fromLocalFile(path), schemaPath, error, messageMode, scheme);
}

bool ReportDefinition::merge(const QByteArray& xml, const QUrl& url, const QString& schemaPath,
                             QString* error, int messageMode)
{
    if (!checkDocument(xml, url, schemaPath, error, messageMode))
        return false;
    XmlSource source(xml, url, error);
    return readDefinition(*this, source, PartialReport);
}

bool ReportDefinition::mergeFile(const QString& path, const QString& schemaPath, QString* error,
                                 int messageMode)
{
    QByteArray xml;
    return readDocumentFile(path, &xml, error) &&
           merge(xml, QUrl::fromLocalFile(path), schemaPath, error, messageMode);
}

bool checkNewId(const ReportDefinition& definition, XmlSource& xml, const QString& id)
{
    if (definition.idScheme().reservesCorvaneIds &&
        (id.startsWith(QLatin1String("corvane.")) || id.startsWith(QLatin1String("com.corvane."))))
        return xml.fail(QObject::tr("The id=\"%1\" is reserved.").arg(id));
    if (id.count(u'.') >= mostPathParts) {
        return xml.fail(QObject::tr("The id=\"%1\" has more than %2 parts.")
                            .arg(id, QString::number(mostPathParts)));
    }
    return true;
}

bool checkMetricExists(const ReportDefinition& definition, XmlSource& xml, const QString& id)
{
    return definition.hasMetric(id) ||
           xml.fail(QObject::tr("There is no metric with id=\"%1\" in this report").arg(id));
}

bool readRequires(const ReportDefinition& definition, XmlSource& xml, QString* out)
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
