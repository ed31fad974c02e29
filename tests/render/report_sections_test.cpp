// What the goldens of the forms don't show.
#include "render/branding.h"
#include "render/report_sections.h"

#include "qt_printing.h"

#include <gtest/gtest.h>

#include <limits>

namespace vantrel {

using namespace report;

namespace {

ReportMetric makeMetric(const QString& id)
{
    ReportMetric metric;
    metric.id = id;
    metric.displayName = id.toUpper();
    return metric;
}

SubsectionEntry makeEntry(const QString& description)
{
    SubsectionEntry entry;
    entry.reportMetric = "a";
    entry.description = description;
    return entry;
}

Subsection makeSubsection(const QString& id, const QList<SubsectionEntry>& entries)
{
    Subsection subsection;
    subsection.id = id;
    subsection.heading = "Heading";
    subsection.entries = entries;
    return subsection;
}

ReportDefinition makeDefinition()
{
    ReportDefinition definition;
    definition.setMetrics({makeMetric("a"), makeMetric("b")});
    return definition;
}

TEST(SummaryData, HasBoundsAndASubstituteForUnknownMetrics)
{
    SummaryEntry entry;
    entry.reportMetric = "nosuch";
    ReportDefinition definition = makeDefinition();
    definition.setSummary({"", "", {entry}});
    QString error = "earlier";
    const QJsonObject data = makeSummaryData(definition, &error);
    EXPECT_EQ(error, "");
    EXPECT_EQ(data.value("bounds").toArray().size(), 2);
    const QJsonObject row = data.value("rows").toArray().first().toObject();
    EXPECT_EQ(row.value("heading").toString(), "Unknown Metric ID: nosuch");
    EXPECT_EQ(row.value("metricId").toString(), "custom.report.metric.Unknown Metric ID: nosuch");
    EXPECT_EQ(findReportMetric(definition, "nosuch").units, "%");
}

TEST(SubsectionsData, LeavesOutWhatIsNotGiven)
{
    SubsectionEntry infinite = makeEntry("");
    infinite.maxBarValue = std::numeric_limits<double>::infinity();
    ReportDefinition definition = makeDefinition();
    Subsection subsection = makeSubsection("s", {infinite});
    subsection.maxAdviceStrings = 0;
    definition.setSubsections({subsection, makeSubsection("empty", {})});
    QString error;
    const QJsonArray sections = makeSubsectionsData(definition, &error);
    ASSERT_EQ(sections.size(), 1);
    const QJsonObject section = sections.first().toObject();
    EXPECT_EQ(section.keys(), QStringList({"adviceHtmlTemplate", "colorName",
                                           "descriptionHtmlTemplate", "heading", "metrics"}));
    EXPECT_TRUE(section.value("adviceHtmlTemplate").toArray().isEmpty());
    EXPECT_EQ(section.value("metrics").toArray().first().toObject().keys(),
              QStringList({"colorName", "metricId", "template"}));
    EXPECT_TRUE(makeColorData(definition, &error).contains("custom.report.subsection.empty"));
}

TEST(ColorData, GivesHueSaturationAndLightness)
{
    const std::pair<QColor, QJsonArray> rows[] = {
        {QColor(), {-1, 0, 0}},
        {QColor(Qt::white), {-1, 0, 100}},
        {QColor::fromHsl(359, 255, 127), {359, 100, 49}},
        {QColor(255, 0, 0), {0, 100, 50}},
    };
    for (const auto& [color, expected] : rows) {
        ReportMetric metric = makeMetric("a");
        metric.colour = color;
        ReportDefinition definition;
        definition.setMetrics({metric});
        QString error;
        EXPECT_EQ(makeColorData(definition, &error).value("custom.report.metric.a").toArray(),
                  expected);
    }
}

TEST(ColorData, CountsSpacersInTheNamesOfEntryColours)
{
    SubsectionEntry spacer;
    spacer.isSpacer = true;
    SubsectionEntry coloured = makeEntry("");
    coloured.colour = Qt::blue;
    ReportDefinition definition = makeDefinition();
    definition.setSubsections({makeSubsection("s", {makeEntry(""), spacer, coloured})});
    const QString name = "custom.report.subsection.s-2-custom.report.metric.a";
    EXPECT_TRUE(makeColorData(definition, nullptr).contains(name));
    const QJsonArray rows =
        makeSubsectionsData(definition, nullptr).first().toObject().value("metrics").toArray();
    EXPECT_EQ(rows.at(2).toObject().value("colorName").toString(), name);
}

TEST(BrandingData, HasABadgeBesideALogoOfTheReportsOwn)
{
    ReportDefinition definition;
    definition.setLogo("https://www.corvane.example/downloads/vantrel-logo-50.png");
    definition.setLogoLink("https://www.corvane.example/products/vantrel");
    QJsonArray logos = makeBrandingData(definition).value("logos").toArray();
    ASSERT_EQ(logos.size(), 1);
    EXPECT_EQ(logos.first().toObject().value("height").toInt(), 150);
    EXPECT_TRUE(logos.first().toObject().value("altData").toString().startsWith(
        "data:image/png;base64,iVBOR"));

    definition.setLogo("own.png");
    definition.setLogoLink("");
    logos = makeBrandingData(definition).value("logos").toArray();
    ASSERT_EQ(logos.size(), 2);
    EXPECT_EQ(logos.first().toObject().keys(), QStringList({"height", "image"}));
    EXPECT_EQ(logos.last().toObject().value("image").toString(),
              "https://www.corvane.example/downloads/powered-by-corvane-reports-61.png");
    EXPECT_EQ(logos.last().toObject().value("height").toInt(), 30);
    EXPECT_EQ(imageFileToDataUri(":/nosuch.png"), "");
}

} // namespace

} // namespace vantrel
