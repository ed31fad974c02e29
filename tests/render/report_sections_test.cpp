// What the goldens of the forms don't show.
#include "render/branding.h"
#include "render/report_sections.h"

#include "qt_printing.h"

#include <gtest/gtest.h>

#include <limits>

using namespace vantrel;
using namespace vantrel::report;

namespace {

TEST(ReportSections, HaveASubstituteForUnknownMetricsAndLeaveOutWhatIsNotGiven)
{
    SummaryEntry entry;
    entry.reportMetric = "nosuch";
    SubsectionEntry infinite;
    infinite.reportMetric = "nosuch";
    infinite.maxBarValue = std::numeric_limits<double>::infinity();
    Subsection subsection;
    subsection.maxAdviceStrings = 0;
    subsection.entries = {infinite};
    ReportDefinition definition;
    definition.setSummary({"", "", {entry}});
    definition.setSubsections({subsection});

    QString error = "earlier";
    const QJsonValue row = makeSummaryData(definition, &error).value("rows")[0];
    EXPECT_EQ(error, "");
    EXPECT_EQ(row["heading"], "Unknown Metric ID: nosuch");
    EXPECT_EQ(row["metricId"], "custom.report.metric.Unknown Metric ID: nosuch");
    const QJsonValue section = makeSubsectionsData(definition, &error).first();
    EXPECT_EQ(section["adviceHtmlTemplate"], QJsonArray());
    const QJsonObject shown{{"colorName", row["metricId"]},
                            {"metricId", row["metricId"]},
                            {"template", "percentageTemplate"}};
    EXPECT_EQ(section["metrics"], QJsonArray{shown});
    definition.setLogo("own.png");
    const QJsonObject logo{{"image", "own.png"}, {"height", 150}};
    EXPECT_EQ(makeBrandingData(definition)["logos"].toArray().first(), logo);
}

} // namespace
