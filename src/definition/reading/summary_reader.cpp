#include "definition/reading/section_readers.h"

#include <QObject>

namespace vantrel::report {

namespace {

bool readSummaryEntry(const ReportDefinition& definition, SummaryEntry* entry, XmlSource& xml)
{
    if (!expectElement(xml, "entry",
                       "Expected start of 'entry' element (from within 'summary'), got '%1'"))
        return false;
    if (!xml.readString("id", XmlSource::Required, &entry->id) ||
        !xml.readString("reportMetric", XmlSource::Required, &entry->reportMetric) ||
        !xml.readString("chartLabel", XmlSource::Optional, &entry->chartLabel) ||
        !checkRequires(definition, xml, &entry->requirement) ||
        !xml.readInt("order", XmlSource::Optional, &entry->order))
        return false;
    readDescription(xml, &entry->description);
    return true;
}

/// @p added has the ids of this document's entries.
bool addSummaryEntry(ReportDefinition& definition, QSet<QString>* added, XmlSource& xml)
{
    SummaryEntry entry;
    if (!readSummaryEntry(definition, &entry, xml))
        return false;
    if (added->contains(entry.id)) {
        return xml.fail(QObject::tr("There is already an entry with id=\"%1\" in the <summary> "
                                    "section of this file")
                            .arg(entry.id));
    }
    if (definition.hasSummaryEntry(entry.id)) {
        return failAgainstSources(definition, xml,
                                  "There is already a non-identical entry with id=\"%1\" in the "
                                  "<summary> section of this report, added from one of the "
                                  "following files:\n",
                                  entry.id);
    }
    // Only the definition's own metrics can be shown, no built-in ones.
    if (!checkNewId(definition, xml, entry.id) ||
        !checkMetricExists(definition, xml, entry.reportMetric))
        return false;
    added->insert(entry.id);
    definition.appendSummaryEntry(entry);
    return true;
}

} // namespace

bool readSummary(ReportDefinition& definition, XmlSource& xml, DocumentKind kind)
{
    bool overwrite = false;
    if (!xml.readBool("overwrite", false, &overwrite))
        return false;
    if (overwrite)
        definition.setSummary({});
    if (!expectElement(xml, "summary", "Expected start of 'summary' element, got '%1'"))
        return false;
    QSet<QString> added;
    for (bool needsHeading = kind == FullReport; xml.readNextStart(); needsHeading = false) {
        if (needsHeading &&
            !expectElement(xml, "heading",
                           "Expected start of 'heading' element (from within 'summary'), got '%1'"))
            return false;
        if (xml.elementName() == QLatin1String("heading")) {
            definition.appendSummaryHeading(xml.readMarkup());
        } else if (xml.elementName() == QLatin1String("footer")) {
            definition.appendSummaryFooter(xml.readMarkup());
        } else if (xml.elementName() == QLatin1String("entry")) {
            if (!addSummaryEntry(definition, &added, xml))
                return false;
        } else {
            xml.setWarning(QObject::tr("Unrecognised element '%1' in <summary>")
                               .arg(xml.elementName().toString()));
            xml.skipElement();
        }
    }
    return definition.hasSummaryEntries() ||
           xml.fail(QObject::tr("There are no <entry> elements in the <summary> section. A report "
                                "must contain at least one metric and summary entry"));
}

} // namespace vantrel::report
