#pragma once

#include "metrics/metric_store.h"
#include "render/output_kind.h"
#include "render/report_sections.h"

#include <QByteArray>
#include <QJsonObject>
#include <QString>

namespace vantrel {

/// Reads what all reports of the process share. After it a page is written without files and
/// without tables of Qt, which a process loses while it ends.
void prepareRendering();

/// The name of the main template; empty for a kind that has none.
QString templateNameForFormat(ReportOutputKind kind);

/// The report data document: all that templates and scripts know of a report.
QJsonObject makeReportDocument(const MetricStore& metrics, const ReportSections& sections);

/// The report in UTF-8. Failures of the engine are Qt warnings, and leave what there is.
QByteArray renderReport(ReportOutputKind kind, const MetricStore& metrics,
                        const ReportSections& sections);

} // namespace vantrel
