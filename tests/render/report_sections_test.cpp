// What the goldens of the forms don't show.
#include "render/report_sections.h"

#include "qt_printing.h"

#include <gtest/gtest.h>

#include <limits>

using namespace vantrel;
using namespace vantrel::report;

namespace {

ReportDefinition makeDefinition()
{
    ReportMetric metric;
    metric.id = "a";
    metric.colour = Colour::fromRgb(255, 255, 255);
    ReportDefinition definition;
    definition.setMetrics({metric});
    return definition;
}

TEST(SummaryData, HasASubstituteForUnknownMetrics)
{
    SummaryEntry entry;
    entry.reportMetric = "nosuch";
    ReportDefinition definition = makeDefinition();
    definition.setSummary({"", "", {entry}});
    QString error = "earlier";
    const QJsonObject data = makeSummaryData(definition, &error);
    EXPECT_EQ(error, "");
    const QJsonObject row = data.value("rows").toArray().first().toObject();
    EXPECT_EQ(row.value("heading").toString(), "Unknown Metric ID: nosuch");
    EXPECT_EQ(row.value("metricId").toString(), "custom.report.metric.Unknown Metric ID: nosuch");
    EXPECT_EQ(findReportMetric(definition, "nosuch").units, "%");
}

TEST(SubsectionsData, CountsSpacersInColourNamesAndLeavesOutWhatIsNotGiven)
{
    SubsectionEntry infinite;
    infinite.reportMetric = "a";
    infinite.maxBarValue = std::numeric_limits<double>::infinity();
    SubsectionEntry spacer;
    spacer.isSpacer = true;
    SubsectionEntry coloured;
    coloured.reportMetric = "a";
    coloured.colour = Colour::fromRgb(0, 0, 255);
    Subsection subsection;
    subsection.id = "s";
    subsection.maxAdviceStrings = 0;
    subsection.entries = {infinite, spacer, coloured};
    ReportDefinition definition = makeDefinition();
    definition.setSubsections({subsection});

    QString error;
    const QJsonObject section = makeSubsectionsData(definition, &error).first().toObject();
    EXPECT_EQ(section.value("adviceHtmlTemplate"), QJsonArray());
    const QJsonArray rows = section.value("metrics").toArray();
    EXPECT_EQ(rows.at(0).toObject().keys(), QStringList({"colorName", "metricId", "template"}));
    const QString name = "custom.report.subsection.s-2-custom.report.metric.a";
    EXPECT_EQ(rows.at(2).toObject().value("colorName").toString(), name);
    const QJsonObject colours = makeColorData(definition, nullptr);
    EXPECT_EQ(colours.value(name), QJsonArray({240, 100, 50}));
    EXPECT_EQ(colours.value("custom.report.metric.a"), QJsonArray({-1, 0, 100}));
}

} // namespace
