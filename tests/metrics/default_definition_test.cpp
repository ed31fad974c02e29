#include "definition/builtin_metrics.h"
#include "definition/compiled_in_schema.h"
#include "definition/default_definition.h"
#include "definition/metric_ids.h"
#include "definition/report_definition.h"
#include "host/installation_paths.h"
#include "metrics/metric_data.h"

#include <QFile>

#include <gtest/gtest.h>

#include <iterator>
#include <memory>

using namespace vantrel;
using namespace vantrel::report;

namespace {

/// Points the installation at the build tree for as long as it lives.
struct BuildTreeRoot {
    BuildTreeRoot() { InstallationPaths::instance()->setAllDirectories(TEST_INSTALLATION_ROOT); }
    ~BuildTreeRoot() { InstallationPaths::instance()->setAllDirectories(QString()); }
};

} // namespace

TEST(DefaultDefinition, usesEveryIdAndAgreesWithTheBuiltInMetrics)
{
    const BuildTreeRoot root;
    QString error;
    const std::unique_ptr<ReportDefinition> definition(ReportDefinition::loadFile(
        defaultDefinitionPath(), compiledInSchema(), &error, 0, ReportIdScheme::builtin()));
    ASSERT_NE(definition, nullptr) << error.toStdString();
    EXPECT_EQ(error, QString());
    EXPECT_EQ(definition->name(), defaultReportName());
    const QSet<QString> familyIds(std::begin(ids::all), std::end(ids::all));
    for (const QString& id : familyIds) {
        EXPECT_TRUE(definition->hasMetric(id) || definition->hasSummaryEntry(id) ||
                    definition->hasSubsection(id))
            << id.toStdString();
    }
    QSet<QString> shown;
    for (const Subsection& subsection : definition->subsections()) {
        EXPECT_TRUE(familyIds.contains(subsection.id)) << subsection.id.toStdString();
        for (const SubsectionEntry& entry : subsection.entries)
            shown.insert(entry.reportMetric);
    }
    for (const SummaryEntry& entry : definition->summary().entries)
        shown.insert(entry.reportMetric);
    for (const ReportMetric& metric : definition->metrics()) {
        const bool isNumber = metric.type == MetricType::Double && !isBuiltinMetric(metric.id);
        EXPECT_EQ(shown.contains(metric.id), isNumber) << metric.id.toStdString();
        EXPECT_EQ(metric.colour.isValid(), isNumber) << metric.id.toStdString();
    }
    for (const auto& list :
         {builtinOverviewMetrics(3), builtinHeaderMetrics(3), builtinValueMetrics(3)}) {
        for (const ReportMetric& builtin : list) {
            const ReportMetric declared = definition->metric(builtin.id);
            ReportMetric expected = builtin;
            if (builtin.displayName.isEmpty())
                expected.displayName = declared.displayName;
            // Definitions have no word for a double with a precision.
            if (builtin.type == MetricType::DoubleWithPrecision)
                expected.type = MetricType::Double;
            EXPECT_EQ(lineOf(declared, declared.corvaneMetricVersion).toStdString(),
                      lineOf(expected, builtin.corvaneMetricVersion).toStdString());
        }
    }
}

TEST(DefaultDefinition, declaresTheMetricsOfAFileThatDeclaresNone)
{
    QFile file(QStringLiteral(TEST_SOURCE_DIR "/../examples/metric-data/family.json"));
    MetricStore store;
    QString error;
    EXPECT_EQ(defaultDefinitionPath(), "vantrel/templates/report-default.xml");
    InstallationPaths::instance()->setAllDirectories("/no such");
    EXPECT_FALSE(store.readFile(file, &error));
    EXPECT_EQ(error, "File '/no such/vantrel/templates/report-default.xml' does not exist");
    const BuildTreeRoot root;
    ASSERT_TRUE(store.readFile(file, &error)) << error.toStdString();
    EXPECT_EQ(error, QString());
    EXPECT_EQ(store.definition("overview.cpu.advice").displayName, "Advice");
    EXPECT_EQ(store.definition("mpi.advice1").displayName, "Advice 1");
    EXPECT_EQ(store.value("overview.mpi.percent"), QVariant(31.9));
    EXPECT_EQ(toDoubleWithPrecision(store.value("applicationDetails.gpusPerNode.plain")).value, 2);
    const QString old = "{\"version\": 0, \"overview\": {\"cpu\": {\"advice\": \"\"}}}";
    EXPECT_FALSE(store.readJson(old, &error));
    EXPECT_EQ(error, "Unable to access value cpu.advice1") << "texts of advice have no version";
}
