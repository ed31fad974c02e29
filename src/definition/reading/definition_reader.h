#pragma once

#include "definition/reading/xml_source.h"
#include "definition/report_definition.h"

namespace vantrel::report {

enum DocumentKind : int { FullReport = 0, PartialReport = 1 };

/// Reads a document into the definition. A full report replaces what the definition had, a partial
/// one adds to it.
///
/// @return false if the document is refused; the definition then holds what was read so far
bool readDefinition(ReportDefinition& definition, XmlSource& xml, DocumentKind kind);

} // namespace vantrel::report
