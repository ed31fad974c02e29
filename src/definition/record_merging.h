#pragma once

#include "definition/report_records.h"

/// A later record of an id changes the earlier one where it says something; what it leaves at its
/// default stays. Each is false, with nothing changed, if the two ids differ.
namespace vantrel::report {

/// The type and the metric version stay those of the earlier record.
bool mergeRecord(ReportMetric* earlier, const ReportMetric& later);

/// The later entries come behind the earlier ones, the greater number of advice strings holds, and
/// the error metric stays.
bool mergeRecord(Subsection* earlier, const Subsection& later);

} // namespace vantrel::report
