// The values of a report: declaring, defaults, and the way in from the exported calls.
#include "api/custom_report.h"
#include "api/library_id.h"
#include "definition/builtin_metrics.h"
#include "definition/metric_ids.h"
#include "metrics/value_definitions.h"

#include <QSet>

namespace vantrel {

using namespace report;

namespace {

/// An internal result that no caller sees.
constexpr int setUpFailed = 102;

const QSet<QString>& applicationDetailIds()
{
    static const auto& ids = *new QSet<QString>{
        QString::fromUtf8(CORVANE_APPLICATION_DETAIL_NOTES),
        QString::fromUtf8(CORVANE_APPLICATION_DETAIL_EXE_PATH),
        QString::fromUtf8(CORVANE_APPLICATION_DETAIL_TIME),
        QString::fromUtf8(CORVANE_APPLICATION_DETAIL_START_DATE),
        QString::fromUtf8(CORVANE_APPLICATION_DETAIL_HOST_NAME),
        QString::fromUtf8(CORVANE_APPLICATION_DETAIL_NUM_NODES),
        QString::fromUtf8(CORVANE_APPLICATION_DETAIL_NUM_PROCESSES),
        QString::fromUtf8(CORVANE_APPLICATION_DETAIL_COMMAND_LINE),
        QString::fromUtf8(CORVANE_APPLICATION_DETAIL_EXE_NAME),
    };
    return ids;
}

/// The ids that may stay unset.
QSet<QString> optionalIds()
{
    QSet<QString> optional{
        QLatin1String(ids::overviewBound2SubsectionHeading),
        QLatin1String(ids::overviewBound2SubsectionId),
        QLatin1String(ids::overviewBound2Type),
        QLatin1String(ids::overviewBound2Short),
        QLatin1String(ids::overviewBound2Long),
        QLatin1String(ids::overviewAdvice),
    };
    for (const ReportMetric& metric : builtinValueMetrics(currentMetricVersion))
        optional.insert(metric.id);
    return optional;
}

} // namespace

int CustomReport::setUpMetrics()
{
    metrics.addDefinitions(reportValueDefinitions(*this));
    storeIdentity();
    return setDefaults();
}

void CustomReport::storeIdentity()
{
    const auto store = [this](const char* id, const QVariant& value) {
        setMetricValue(QString::fromLatin1(id), value, RejectUnknown);
    };
    store(ids::reportName, name());
    store(ids::reportVersionApi, apiVersion);
    store(ids::reportVersionSoftware, softwareVersion());
    store(ids::reportSrcDefinition, describeSources(0));
    store("version", currentMetricVersion);
    store(ids::reportSrcValues, QStringLiteral("corvane:/custom-report-api"));
}

int CustomReport::setDefaults()
{
    for (const QString& id : optionalIds()) {
        if (!metrics.setDefaultValue(id)) {
            setError("Internal error - failed setting default value for metric %s",
                     id.toLocal8Bit().constData());
            return setUpFailed;
        }
    }
    for (const SummaryEntry& entry : summary().entries)
        metrics.setDefaultValue(summaryAdviceKey(entry.id, idScheme()));
    for (const Subsection& subsection : subsections()) {
        for (int n = 1; n <= subsection.maxAdviceStrings; ++n)
            metrics.setDefaultValue(subsectionAdviceKey(subsection.id, idScheme(), n));
    }
    metrics.setDefaultValue(QLatin1String(ids::overviewAdvice));
    return VANTREL_OK;
}

int CustomReport::setValueFromCaller(const char* metricId, const QVariant& value)
{
    if (const int code = checkText(metricId, "metric name"))
        return code;
    QString id = QString::fromUtf8(metricId);
    // An id of the definition is that of a metric of its own, whatever type it is declared with;
    // any other id is a full key already.
    if (!applicationDetailIds().contains(id) && hasMetric(id)) {
        if (value.userType() != QMetaType::Double) {
            setError("attempt to set the value for metric \"%s\" to a \"%s\". All user-defined "
                     "metrics are of type \"double\" and must be set with "
                     "vantrel_set_value_double(report,metricId,value).",
                     metricId, value.typeName());
            return VANTREL_WRONG_TYPE;
        }
        const QString& prefix = idScheme().metricPrefix;
        if (!prefix.isEmpty())
            id = prefix + u'.' + id;
    }
    return setMetricValue(id, value, RejectUnknown);
}

int CustomReport::setStringFromCaller(const char* metricId, const char* value)
{
    return setValueFromCaller(metricId, QString::fromUtf8(value));
}

int CustomReport::setMetricValue(const QString& id, const QVariant& value,
                                 UnknownMetricPolicy policy)
{
    const MetricDefinition* definition = metrics.findDefinition(id);
    if (!definition) {
        if (policy == RejectUnknown) {
            setError("unknown metric: \"%s\"", id.toUtf8().constData());
            return VANTREL_UNKNOWN_METRIC;
        }
        MetricDefinition inferred;
        inferred.id = id;
        inferred.valuePath = id;
        inferred.type = inferMetricType(value);
        metrics.addDefinition(inferred);
        definition = metrics.findDefinition(id);
    }
    if (!isValueOfType(definition->type, value)) {
        setError("expected type \"%s\" for metric \"%s\"",
                 metricTypeName(definition->type).toUtf8().constData(), id.toUtf8().constData());
        return VANTREL_WRONG_TYPE;
    }
    if (id == QLatin1String(ids::applicationDetailsProcessesPlain) && value.toInt() < 1) {
        setError("%s is an invalid value for metric CORVANE_APPLICATION_DETAIL_NUM_PROCESSES. "
                 "Value must be >= 1.",
                 value.toString().toUtf8().constData());
        return VANTREL_INVALID_COUNT;
    }
    // No nodes at all are accepted, whatever the words say.
    if (id == QLatin1String(ids::applicationDetailsNodesPlain) && value.toInt() < 0) {
        setError("%s is an invalid value for metric CORVANE_APPLICATION_DETAIL_NUM_NODES. Value "
                 "must be >= 1.",
                 value.toString().toUtf8().constData());
        return VANTREL_INVALID_COUNT;
    }
    metrics.setValueOf(*definition, value);
    return VANTREL_OK;
}

} // namespace vantrel
