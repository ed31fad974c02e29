#include "render/placeholders.h"

#include "qt_printing.h"

#include <gtest/gtest.h>

using namespace vantrel;
using namespace vantrel::report;

namespace {

ReportDefinition makeDefinition()
{
    ReportDefinition definition;
    definition.setName("Test 100%1");
    definition.setUrl(QUrl("file:///a%20b.xml"));
    for (const auto& [id, version] : {std::pair("speed", 0), std::pair("cpu.share", 2)}) {
        ReportMetric metric;
        metric.id = id;
        metric.corvaneMetricVersion = version;
        definition.appendMetric(metric);
    }
    return definition;
}

TEST(ExpandPlaceholders, ReplacesWhatItKnows)
{
    const QString speed =
        "<span class=\"custom.report.metric.speed\">{{custom.report.metric.speed}}</span>";
    const auto bound = [](const char* type, const char* text) {
        return QString("<span class=\"{{overview.%1}}\">{{overview.%2}}</span>").arg(type, text);
    };
    const std::pair<QString, QString> rows[] = {
        {"a ${ speed\t} b", "a " + speed + " b"},
        {"${a${speed}}", "${a" + speed + "}"},
        {"${cpu.share}", "<span class=\"cpu.share\">{{cpu.share}}</span>"},
        {"${corvane.dominant.metric.advice}", "{{{overview.advice}}}"},
        {"${corvane.dominant.metric.name}", bound("bound1.type", "bound1.short")},
        {"${corvane.secondaryDominant.metric.bound}", bound("bound2.type", "bound2.long")},
        {"${corvane.secondaryDominant.metric.name}", bound("bound2.type", "bound2.short")},
        {"${corvane.secondaryDominant.metric.subsection}",
         bound("bound2.subsectionId", "bound2.subsectionHeading")},
    };
    for (const auto& [text, expected] : rows) {
        QString error = "an earlier one";
        EXPECT_EQ(expandPlaceholders(makeDefinition(), text, &error), expected);
        EXPECT_EQ(error, "");
    }
    for (const char* text : {"", "plain $ { } text", "${speed", "${{speed}}", "${a$b}"}) {
        QString error = "an earlier one";
        EXPECT_EQ(expandPlaceholders(makeDefinition(), text, &error), text);
        EXPECT_EQ(error, "an earlier one");
    }
}

TEST(ExpandPlaceholders, RefusesWhatItDoesNotKnow)
{
    const QStringList builtins = builtinPlaceholders().keys();
    const QString message =
        "Invalid placeholder \"${%0}\" in report:\n        Test 100%1 (file:///a b.xml)\n\n"
        "The built-in placeholders are:\n        ${" +
        builtins.join("}\n        ${") +
        "}\n"
        "\nYou can also reference metric values by using the metric id:\n"
        "    ${metricId}  : the metric value\n"
        "    ${*metricId} : the metric value and units, scaled to a suitable SI prefix\n";
    for (const char* key : {"", "*", "*nosuch", "custom.report.metric.speed", "%1%2"}) {
        QString error = "an earlier one";
        const QString text = QString("${speed} ${ %0 } ${speed}").replace("%0", key);
        EXPECT_EQ(expandPlaceholders(makeDefinition(), text, &error), QString());
        EXPECT_EQ(error, QString(message).replace("%0", key));
    }
}

} // namespace
