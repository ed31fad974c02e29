#pragma once

#include "definition/report_records.h"

#include <QList>
#include <QSet>

/// The metrics that every report holds without a definition declaring them.
namespace vantrel {

/// @name The three lists
/// The version doesn't matter: each row tells by its own when it joined the family.
/// @{
QList<report::ReportMetric> builtinOverviewMetrics(int version);
QList<report::ReportMetric> builtinHeaderMetrics(int version);
QList<report::ReportMetric> builtinValueMetrics(int version);
/// @}

/// Whether one of the three lists has this id.
bool isBuiltinMetric(const QString& id);
/// Whether the id ends in ".plain" and has a short form outside the report.
bool isPlainMetric(const QString& id);

} // namespace vantrel
