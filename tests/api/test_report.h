#pragma once

#include "api/custom_report.h"

#include <gtest/gtest.h>

#include <string>

/// A report to set and to write.
namespace vantrel {

inline constexpr char definition[] = R"(<report
xmlns="http://www.corvane.example/2016/CorvaneReports" name='R'><reportMetrics>
<reportMetric id='cpu' displayName='CPU' units='%' breakdownSubsection='mem'/>
<reportMetric id='a.b' displayName='A'/>
<reportMetric id='text' displayName='T' type='string'/>
<reportMetric id='known' displayName='K' corvaneMetricVersion='2'/></reportMetrics>
<summary><heading>h</heading><entry id='late' reportMetric='a.b' order='1'/>
<entry id='first' reportMetric='cpu'/><entry id='third' reportMetric='known' order='2'/></summary>
<subsections><subsection id='mem' heading='Memory' maxAdviceStrings='3'>
<entry reportMetric='a.b'/></subsection></subsections></report>)";

struct Report : CustomReport {
    explicit Report(const QByteArray& xml = definition) : CustomReport(xml) {}

    /// The code of a call, and the error text.
    std::string told(int code) const { return std::to_string(code) + ' ' + errorMessage(); }
    QString value(const char* id) const { return metricValue(id).toString(); }
    int set(const char* id, const QVariant& value) { return setValueFromCaller(id, value); }
    int generate() { return generateReport(&bytes, ReportOutputKind::Json); }
    /// The five texts of "bound1" or "bound2".
    std::string bound(const char* key) const
    {
        QStringList texts;
        for (const char* part : {"long", "short", "type", "subsectionId", "subsectionHeading"})
            texts += metricValue(QString("overview.%1.%2").arg(key, part)).toString();
        return texts.join('|').toStdString();
    }

    /// Sets all that must be set.
    void fill(double cpu = 1, double ab = 2, double known = 3)
    {
        EXPECT_EQ(set(CORVANE_APPLICATION_DETAIL_NUM_PROCESSES, 4), 0);
        EXPECT_EQ(set(CORVANE_APPLICATION_DETAIL_EXE_NAME, "exe"), 0);
        fillMetrics(cpu, ab, known);
    }
    void fillMetrics(double cpu = 1, double ab = 2, double known = 3)
    {
        EXPECT_EQ(set("cpu", cpu) + set("a.b", ab), 0);
        EXPECT_EQ(setMetricValue("custom.report.metric.text", "t", RejectUnknown), 0);
        EXPECT_EQ(setMetricValue("known", known, RejectUnknown), 0);
    }

    QByteArray bytes; ///< of the last document
};

} // namespace vantrel
