#pragma once

#include "definition/report_definition.h"

#include <QMap>
#include <QString>

namespace vantrel {

/// The placeholders that every report understands, and the template text of each.
const QMap<QString, QString>& builtinPlaceholders();

/// Replaces each "${...}" in markup by template text that reads the value when the page is
/// rendered. A text without placeholders leaves @p error alone.
///
/// @param error not null; emptied by each placeholder, and set by the first that means nothing
/// @return an empty text after a failure
QString expandPlaceholders(const report::ReportDefinition& definition, const QString& text,
                           QString* error);

} // namespace vantrel
