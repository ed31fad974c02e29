#include "definition/default_definition.h"

#include "host/installation_paths.h"
#include "host/path_string.h"

namespace vantrel::report {

namespace {

constexpr char templates[] = "vantrel/templates/";

QString belowRoot(const QString& relative)
{
    const InstallationPaths* paths = InstallationPaths::instance();
    return PathString::filePath(paths ? paths->root() : QString(), relative);
}

} // namespace

QString reportTemplatesDirectory()
{
    return belowRoot(QLatin1String(templates));
}

QString defaultDefinitionPath()
{
    return belowRoot(QLatin1String(templates) + QLatin1String("report-default.xml"));
}

QString defaultReportName()
{
    return QStringLiteral("default");
}

} // namespace vantrel::report
