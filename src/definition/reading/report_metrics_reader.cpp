#include "definition/reading/section_readers.h"

#include <QObject>

namespace vantrel::report {

namespace {

bool readSourceDetails(ReportMetric* metric, XmlSource& xml)
{
    if (!expectElement(xml, "sourceDetails", "Expected start of 'sourceDetails' element, got '%1'"))
        return false;
    if (!xml.readString("metricRef", XmlSource::Required, &metric->metricRef) ||
        !xml.readSampleValue("sampleValue", &metric->sampleValue) ||
        !xml.readAggregation("aggregation", &metric->aggregation))
        return false;
    xml.skipElement();
    return true;
}

bool readUnits(ReportMetric* metric, XmlSource& xml)
{
    if (metric->type == MetricType::Integer || metric->type == MetricType::Double)
        return xml.readString("units", XmlSource::Optional, &metric->units);
    if (xml.hasAttribute("units")) {
        return xml.fail(
            QObject::tr("A '%1' element of type '%2' should not contain a 'units' attribute")
                .arg(xml.elementName().toString(), xml.attribute("type")));
    }
    metric->units.clear();
    return true;
}

bool readMetricAttributes(ReportMetric* metric, bool isKnown, XmlSource& xml)
{
    return expectElement(xml, "reportMetric",
                         "Expected start of 'reportMetric' element, got '%1'") &&
           xml.readString("id", XmlSource::Required, &metric->id) &&
           xml.readString("displayName", isKnown ? XmlSource::Optional : XmlSource::Required,
                          &metric->displayName) &&
           xml.readString("breakdownSubsection", XmlSource::Optional,
                          &metric->breakdownSubsection) &&
           xml.readColourAttribute("colour", &metric->colour) &&
           xml.readMetricType("type", &metric->type) && readUnits(metric, xml) &&
           xml.readMetricVersion("corvaneMetricVersion", &metric->corvaneMetricVersion) &&
           xml.readString("source", XmlSource::OptionalNotEmpty, &metric->source);
}

/// What follows the start tag. A metric with a source other than "metric" may have details, which
/// are passed over; one without a source must not.
bool readMetricContent(ReportMetric* metric, XmlSource& xml)
{
    if (metric->source == QLatin1String("metric")) {
        xml.readNextStart();
        if (!readSourceDetails(metric, xml))
            return false;
    }
    if (xml.hasAttribute("source")) {
        xml.skipElement();
        return true;
    }
    for (;;) {
        switch (xml.readNext()) {
        case QXmlStreamReader::StartElement:
            if (xml.elementName() == QLatin1String("sourceDetails")) {
                return xml.fail(
                    QObject::tr("Unexpected element '%1'").arg(xml.elementName().toString()));
            }
            break;
        case QXmlStreamReader::EndElement:
        case QXmlStreamReader::Invalid:
        case QXmlStreamReader::NoToken:
            return true;
        default:
            break;
        }
    }
}

bool readMetric(ReportMetric* metric, bool isKnown, XmlSource& xml)
{
    return readMetricAttributes(metric, isKnown, xml) && readMetricContent(metric, xml);
}

bool checkCollision(const ReportDefinition& definition, XmlSource& xml, const QString& id)
{
    QString problem;
    const QString existing = definition.findMetricIdCollision(id, &problem);
    if (!problem.isEmpty())
        return xml.fail(problem);
    if (existing.isEmpty())
        return true;
    return xml.fail(QObject::tr("%1 metric id name collision detected between \"%2\" and \"%3\".")
                        .arg(existing == id ? QStringLiteral("Full") : QStringLiteral("Partial"),
                             id, existing));
}

/// @p added has the ids of this document's new metrics.
bool addMetric(ReportDefinition& definition, QSet<QString>* added, XmlSource& xml)
{
    const bool isKnown = definition.hasMetric(xml.attribute("id"));
    ReportMetric metric;
    if (!readMetric(&metric, isKnown, xml))
        return false;
    if (added->contains(metric.id)) {
        return xml.fail(QObject::tr("There is already a metric with id=\"%1\" in the <metrics> "
                                    "section of this file")
                            .arg(metric.id));
    }
    if (isKnown) {
        return definition.mergeMetric(metric) ||
               failAgainstSources(definition, xml,
                                  "Unable to merge metric with id=\"%1\" from this file into the "
                                  "existing report that was constructed from the following "
                                  "files:\n",
                                  metric.id);
    }
    if (!checkNewId(definition, xml, metric.id) || !checkCollision(definition, xml, metric.id))
        return false;
    added->insert(metric.id);
    definition.appendMetric(metric);
    return true;
}

} // namespace

bool readMetrics(ReportDefinition& definition, XmlSource& xml)
{
    if (!expectElement(xml, "reportMetrics", "Expected start of 'reportMetrics' element, got '%1'"))
        return false;
    QSet<QString> added;
    while (xml.readNextStart()) {
        if (xml.elementName() != QLatin1String("reportMetric")) {
            xml.setWarning(QObject::tr("Unrecognised element '%1' in <reportMetric>")
                               .arg(xml.elementName().toString()));
            xml.skipElement();
            continue;
        }
        if (!addMetric(definition, &added, xml))
            return false;
    }
    return true;
}

} // namespace vantrel::report
