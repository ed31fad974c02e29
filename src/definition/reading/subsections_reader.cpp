#include "definition/reading/section_readers.h"

#include "definition/builtin_metrics.h"

#include <QObject>

namespace vantrel::report {

namespace {

bool readEntryAttributes(const ReportDefinition& definition, SubsectionEntry* entry, XmlSource& xml)
{
    if (entry->isSpacer) {
        return xml.readInt("order", XmlSource::Optional, &entry->order) &&
               checkRequires(definition, xml, &entry->requirement);
    }
    return xml.readBool("machineReadableOnly", false, &entry->machineReadableOnly) &&
           xml.readString("reportMetric", XmlSource::Required, &entry->reportMetric) &&
           xml.readUnitPrefix("unitPrefix", &entry->unitPrefix) &&
           xml.readString("displayName", XmlSource::Optional, &entry->displayName) &&
           xml.readColourAttribute("colour", &entry->colour) &&
           xml.readString("group", XmlSource::Optional, &entry->group) &&
           xml.readDouble("maxBarValue", XmlSource::Optional, &entry->maxBarValue) &&
           xml.readInt("order", XmlSource::Optional, &entry->order) &&
           checkRequires(definition, xml, &entry->requirement);
}

bool readSubsectionEntry(const ReportDefinition& definition, SubsectionEntry* entry, XmlSource& xml)
{
    entry->isSpacer = xml.elementName() == QLatin1String("spacer");
    if (!entry->isSpacer &&
        !expectElement(
            xml, "entry",
            "Expected start of 'entry' or 'spacer' element (from within 'subsection'), got '%1'"))
        return false;
    if (!readEntryAttributes(definition, entry, xml))
        return false;
    readDescription(xml, &entry->description);
    return true;
}

bool addEntry(const ReportDefinition& definition, Subsection* subsection, XmlSource& xml)
{
    SubsectionEntry entry;
    if (!readSubsectionEntry(definition, &entry, xml))
        return false;
    if (!entry.isSpacer && !checkMetricExists(definition, xml, entry.reportMetric))
        return false;
    subsection->entries.append(entry);
    return true;
}

/// The metric that replaces the subsection by an error message. One that isn't a string is
/// reported, but doesn't end the reading.
bool readErrorMetric(const ReportDefinition& definition, Subsection* subsection, XmlSource& xml)
{
    if (!xml.hasAttribute("errorMetric")) {
        subsection->errorMetric.clear();
        return true;
    }
    QString& id = subsection->errorMetric;
    if (!xml.readString("errorMetric", XmlSource::Required, &id))
        return false;
    if (!isBuiltinMetric(id) && !checkMetricExists(definition, xml, id))
        return false;
    const MetricType type = definition.metric(id).type;
    if (type != MetricType::String) {
        xml.setError(QObject::tr("errorMetric attribute must refer to a string metric, but metric "
                                 "\"%1\" is of type \"%2\"")
                         .arg(id, metricTypeName(type)));
    }
    return true;
}

bool readMaxAdviceStrings(Subsection* subsection, XmlSource& xml)
{
    if (!xml.hasAttribute("maxAdviceStrings"))
        return true;
    int& number = subsection->maxAdviceStrings;
    if (!xml.readInt("maxAdviceStrings", XmlSource::Optional, &number))
        return false;
    if (number > maxAdviceStringsOfOne) {
        return xml.fail(QObject::tr("Attribute 'maxAdviceStrings' cannot be greater than %1. "
                                    "Current value = %2.")
                            .arg(maxAdviceStringsOfOne)
                            .arg(number));
    }
    if (number < 0) {
        xml.setError(QObject::tr("Attribute 'maxAdviceStrings' cannot be negative. Current value = "
                                 "%1.")
                         .arg(number));
    }
    return true;
}

bool readSubsectionContent(const ReportDefinition& definition, Subsection* subsection,
                           XmlSource& xml)
{
    while (xml.readNextStart()) {
        const QStringRef name = xml.elementName();
        if (name == QLatin1String("text")) {
            subsection->text += xml.readMarkup();
        } else if (name == QLatin1String("entry") || name == QLatin1String("spacer")) {
            if (!addEntry(definition, subsection, xml))
                return false;
        } else {
            xml.setWarning(
                QObject::tr("Unrecognised element '%1' in <subsection>").arg(name.toString()));
            xml.skipElement();
        }
    }
    return true;
}

bool readSubsection(const ReportDefinition& definition, Subsection* subsection, bool isKnown,
                    XmlSource& xml)
{
    return expectElement(xml, "subsection", "Expected start of 'subsection' element, got '%1'") &&
           xml.readString("id", XmlSource::Required, &subsection->id) &&
           xml.readString("heading", isKnown ? XmlSource::Optional : XmlSource::Required,
                          &subsection->heading) &&
           xml.readColourAttribute("colour", &subsection->colour) &&
           checkRequires(definition, xml, &subsection->requirement) &&
           readErrorMetric(definition, subsection, xml) &&
           xml.readInt("order", XmlSource::Optional, &subsection->order) &&
           readMaxAdviceStrings(subsection, xml) &&
           readSubsectionContent(definition, subsection, xml);
}

bool mergeSubsection(ReportDefinition& definition, const Subsection& subsection, bool overwrite,
                     XmlSource& xml)
{
    if (overwrite)
        return definition.replaceSubsection(subsection);
    return definition.mergeSubsection(subsection) ||
           failAgainstSources(definition, xml,
                              "Unable to merge subsection with id=\"%1\" from this file into the "
                              "existing report that was constructed from the following files:\n",
                              subsection.id);
}

/// @p added has the ids of this document's new subsections.
bool addSubsection(ReportDefinition& definition, QSet<QString>* added, XmlSource& xml)
{
    bool overwrite = false;
    if (!xml.readBool("overwrite", false, &overwrite))
        return false;
    Subsection subsection;
    const bool isKnown = definition.hasSubsection(xml.attribute("id"));
    if (!readSubsection(definition, &subsection, isKnown, xml))
        return false;
    if (added->contains(subsection.id)) {
        return xml.fail(QObject::tr("There is already a subsection with id=\"%1\" in the "
                                    "<subsections> section of this file")
                            .arg(subsection.id));
    }
    if (isKnown) {
        if (!mergeSubsection(definition, subsection, overwrite, xml))
            return false;
    } else {
        if (!checkNewId(definition, xml, subsection.id))
            return false;
        added->insert(subsection.id);
        definition.appendSubsection(subsection);
    }
    return definition.maxAdviceStrings() <= maxAdviceStringsInAll ||
           xml.fail(QObject::tr("The subsections have more than %1 advice strings together.")
                        .arg(maxAdviceStringsInAll));
}

bool checkBreakdowns(ReportDefinition& definition, XmlSource& xml)
{
    const ReportMetric* metric = definition.findMissingBreakdown();
    return !metric || xml.fail(QObject::tr("No subsection has id=\"%1\", required by the "
                                           "\"breakdownSubsection\" attribute of the \"%2\" metric")
                                   .arg(metric->breakdownSubsection, metric->id));
}

} // namespace

bool readSubsections(ReportDefinition& definition, XmlSource& xml)
{
    bool overwrite = false;
    if (!xml.readBool("overwrite", false, &overwrite))
        return false;
    if (overwrite)
        definition.setSubsections({});
    if (!expectElement(xml, "subsections", "Expected start of 'subsections' element, got '%1'"))
        return false;
    QSet<QString> added;
    while (xml.readNextStart()) {
        if (xml.elementName() == QLatin1String("subsection")) {
            if (!addSubsection(definition, &added, xml))
                return false;
            continue;
        }
        xml.setWarning(QObject::tr("Unrecognised element '%1' in <subsections>")
                           .arg(xml.elementName().toString()));
        xml.skipElement();
    }
    return checkBreakdowns(definition, xml);
}

} // namespace vantrel::report
