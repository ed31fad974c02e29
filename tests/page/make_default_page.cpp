// Renders a metric data file with the default definition, and with an error in a section of it.
// usage: make_default_page ROOT DATA PAGE
#include "definition/compiled_in_schema.h"
#include "definition/default_definition.h"
#include "definition/report_definition.h"
#include "host/installation_paths.h"
#include "metrics/metric_store.h"
#include "render/report_renderer.h"

#include <QCoreApplication>
#include <QFile>

#include <iostream>
#include <memory>

using namespace vantrel;
using namespace vantrel::report;

int main(int argc, char** argv)
{
    if (argc != 4)
        return 2;
    const QCoreApplication application(argc, argv);
    InstallationPaths::instance()->setAllDirectories(argv[1]);
    QString error;
    const std::unique_ptr<ReportDefinition> definition(ReportDefinition::loadFile(
        defaultDefinitionPath(), compiledInSchema(), &error, 0, ReportIdScheme::builtin()));
    MetricStore store;
    QFile data(argv[2]);
    ReportSections sections;
    if (!definition || !store.readFile(data, &error) ||
        !store.setValue("io.rateError", "No <b>rates</b> &amp; shares") ||
        !makeReportSections(*definition, &sections, &error)) {
        std::cerr << error.toStdString() << '\n';
        return 1;
    }
    QFile page(argv[3]);
    const QByteArray bytes = renderReport(ReportOutputKind::DynamicHtml, store, sections);
    return page.open(QIODevice::WriteOnly) && page.write(bytes) == bytes.size() ? 0 : 1;
}
