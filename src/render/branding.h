#pragma once

#include "definition/report_definition.h"

#include <QJsonObject>
#include <QString>

namespace vantrel {

/// The logos of the page: the definition's and, if that is one of its own, the badge beside it.
QJsonObject makeBrandingData(const report::ReportDefinition& definition);

/// Reads the images that the logos fall back to. They are kept.
void prepareBranding();

/// The PNG image of a file as a data URI; empty, after a warning, if it can't be read.
QString imageFileToDataUri(const QString& path);

} // namespace vantrel
