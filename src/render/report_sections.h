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

/// @name Each empties @p error, which may be null, and gives an empty result after setting it.
/// @{
QJsonObject makeSummaryData(const report::ReportDefinition& definition, QString* error);
QJsonArray makeSubsectionsData(const report::ReportDefinition& definition, QString* error);
QJsonObject makeColorData(const report::ReportDefinition& definition, QString* error);
/// @}

/// All parts of a definition, with its branding.
///
/// @return false, with the first message in @p error, which may be null, if a part can't be made
bool makeReportSections(const report::ReportDefinition& definition, ReportSections* sections,
                        QString* error);

/// The metric of this id; for an unknown one, after a debug message, a substitute whose name says
/// so.
report::ReportMetric findReportMetric(const report::ReportDefinition& definition,
                                      const QString& id);

} // namespace vantrel
