#pragma once

#include "definition/reading/definition_reader.h"

#include <QSet>

/// The readers of a definition's three sections. Each is called with the source on the section's
/// start tag and is false if the document is refused. A metric or subsection whose id came with an
/// earlier document changes what is there; a summary entry is refused then, and so is any record
/// whose id the same document has added.
namespace vantrel::report {

/// Advice slots are declared one by one, so there must be an end to them: for one subsection, and
/// for all together.
constexpr int maxAdviceStringsOfOne = 1000;
constexpr int maxAdviceStringsInAll = 100000;

bool readMetrics(ReportDefinition& definition, XmlSource& xml);
bool readSummary(ReportDefinition& definition, XmlSource& xml, DocumentKind kind);
bool readSubsections(ReportDefinition& definition, XmlSource& xml);

/// @name Shared by the sections
/// @{
/// Whether a new record may have this id.
bool checkNewId(const ReportDefinition& definition, XmlSource& xml, const QString& id);
/// Whether the definition has this metric.
bool checkMetricExists(const ReportDefinition& definition, XmlSource& xml, const QString& id);
/// Reads the attribute that makes a row depend on a metric.
bool checkRequires(const ReportDefinition& definition, XmlSource& xml, QString* out);
/// Reads the description of an entry, if its first child is one, and goes to the entry's end tag.
void readDescription(XmlSource& xml, QString* description);
/// Refuses a record that can't go with what earlier documents brought. The message tells which
/// ones.
bool failAgainstSources(const ReportDefinition& definition, XmlSource& xml, const char* message,
                        const QString& id);
/// Refuses an element that isn't where it belongs.
bool expectElement(XmlSource& xml, const char* name, const char* message);
/// @}

} // namespace vantrel::report
