#pragma once

#include "definition/colour.h"
#include "definition/metric_type.h"

#include <QList>
#include <QString>

#include <cmath>
#include <limits>

/// The records of a report definition: plain values that refer to one another by id.
namespace vantrel::report {

/// How the ids of a definition become the keys of values, and which ids are refused.
struct ReportIdScheme {
    QString metricPrefix = QStringLiteral("custom.report.metric");
    QString summaryPrefix = QStringLiteral("custom.report.summary");
    QString subsectionPrefix = QStringLiteral("custom.report.subsection");
    bool reservesCorvaneIds = true;

    /// The scheme of the definitions that are our own: no prefixes, no reserved ids.
    static ReportIdScheme builtin() { return {QString(), QString(), QString(), false}; }
};

/// The unit prefixes that a row asks for: powers of 1000, or of 1024.
enum class UnitPrefixChoice : int { Si = 0, Iec = 1 };

/// What of a sampled metric's samples makes the value.
enum class SampleValue : int { None = 0, Min = 1, Max = 2, Mean = 3, Sum = 4 };

/// How the values of several processes become one.
enum class Aggregation : int { None = 0, Min = 1, Max = 2, Mean = 3 };

/// A declared metric.
struct ReportMetric {
    QString id; ///< dotted
    QString displayName;
    QString units;
    Colour colour; ///< invalid for none
    MetricType type = MetricType::Double;
    int corvaneMetricVersion = 0; ///< 0 for a custom metric
    QString breakdownSubsection;  ///< id of a subsection; empty for none
    QString source;               ///< "metric" for one that is fed from a sampled metric
    QString metricRef;            ///< name of the sampled metric
    SampleValue sampleValue = SampleValue::None;
    Aggregation aggregation = Aggregation::None;
};

/// A row of the summary.
struct SummaryEntry {
    QString id;
    QString reportMetric; ///< id of the metric shown
    QString chartLabel;
    QString description; ///< markup
    QString requirement; ///< id of the metric that shows the row, "!" in front negates; or empty
    int order = 0;
};

/// A metric row or a spacer of a subsection.
struct SubsectionEntry {
    QString reportMetric; ///< empty for a spacer
    QString displayName;  ///< replaces the metric's own
    Colour colour;        ///< replaces the metric's own
    QString requirement;
    QString description; ///< markup
    UnitPrefixChoice unitPrefix = UnitPrefixChoice::Si;
    bool machineReadableOnly = false;
    QString group;
    int order = 0;
    double maxBarValue = std::numeric_limits<double>::quiet_NaN();
    bool isSpacer = false; ///< only order, requirement and description mean anything
};

struct Subsection {
    QString id;
    QString heading;
    Colour colour;
    QString text;        ///< markup
    QString errorMetric; ///< id of a string metric that holds an error message
    QList<SubsectionEntry> entries;
    QString requirement;
    int order = 0;
    int maxAdviceStrings = 1;
};

/// The summary as it is handed out and taken in.
struct Summary {
    QString heading; ///< markup
    QString footer;  ///< markup
    QList<SummaryEntry> entries;
};

/// Whether a full scale was given for the row's bar.
inline bool hasMaxBarValue(const SubsectionEntry& entry)
{
    return std::isfinite(entry.maxBarValue);
}

/// @name Keys of values
/// @{
QString qualifiedMetricId(const ReportMetric& metric, const ReportIdScheme& scheme);
QString qualifiedSubsectionId(const QString& id, const ReportIdScheme& scheme);
QString qualifiedSummaryId(const QString& id, const ReportIdScheme& scheme);
QString summaryAdviceKey(const QString& id, const ReportIdScheme& scheme);
/// @p n counts from 1.
QString subsectionAdviceKey(const QString& id, const ReportIdScheme& scheme, int n);
/// @}

} // namespace vantrel::report
