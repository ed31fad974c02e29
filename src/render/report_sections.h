#pragma once

#include "definition/report_definition.h"

#include <QJsonArray>
#include <QJsonObject>
#include <QString>

/// The parts of the report data document that come from the definition.
namespace vantrel {

struct ReportSections {
    QJsonObject branding;
    QJsonObject summary;
    QJsonArray subsections;
    QJsonObject colors;
};

/// @name Each gives an empty result after a failure.
/// @{
QJsonObject makeSummaryData(const report::ReportDefinition& definition, QString* error);
QJsonArray makeSubsectionsData(const report::ReportDefinition& definition, QString* error);
/// Hue, saturation and lightness by the names that the other parts give their colours.
QJsonObject makeColorData(const report::ReportDefinition& definition, QString* error);
/// @}

/// All parts of a definition, with its branding.
///
/// @return false if a part can't be made
bool makeReportSections(const report::ReportDefinition& definition, ReportSections* sections,
                        QString* error);

/// The metric of this id; for an unknown one, after a debug message, a substitute whose name says
/// so.
report::ReportMetric findReportMetric(const report::ReportDefinition& definition,
                                      const QString& id);

} // namespace vantrel
