#pragma once

#include "definition/report_definition.h"
#include "definition/xml_source.h"

namespace vantrel::report {

/// Reads a full document into the definition, which loses what it had.
///
/// @return false if the document is refused; the definition then holds what was read so far
bool readDefinition(ReportDefinition& definition, XmlSource& xml);

} // namespace vantrel::report
