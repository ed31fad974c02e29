#pragma once

namespace vantrel {

/// The forms of a report.
enum class ReportOutputKind { Text = 0, DynamicHtml = 1, Csv = 2, Json = 3 };

} // namespace vantrel
