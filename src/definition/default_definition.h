#pragma once

#include <QString>

/// The one definition that is installed with the library: it declares the metrics of the family.
namespace vantrel::report {

/// The directory below the installation root that has the definition; ends in a separator.
QString reportTemplatesDirectory();
QString defaultDefinitionPath();
/// The name by which the definition goes.
QString defaultReportName();

} // namespace vantrel::report
