#pragma once

#include "definition/report_definition.h"
#include "metrics/metric_store.h"

#include <QList>

namespace vantrel {

/// All values that a report of this definition can hold: its metrics, the advice of its summary
/// entries and subsections, and the built-in metrics, which win over an earlier one of equal key.
QList<MetricDefinition> reportValueDefinitions(const report::ReportDefinition& definition);

} // namespace vantrel
