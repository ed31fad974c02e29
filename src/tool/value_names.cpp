#include "tool/value_names.h"

#include "definition/metric_ids.h"
#include "metrics/value_definitions.h"

namespace vantrel::tool {

using namespace report;

const DetailName detailNames[9] = {
    {"exeName", ids::applicationDetailsExeName},
    {"processes", ids::applicationDetailsProcessesPlain},
    {"time", ids::applicationDetailsTimePlain},
    {"nodes", ids::applicationDetailsNodesPlain},
    {"hostname", ids::applicationDetailsHostname},
    {"startDate", ids::applicationDetailsStartDate},
    {"commandLine", ids::applicationDetailsCommandLine},
    {"exePath", ids::applicationDetailsExePath},
    {"notes", ids::applicationDetailsNotes},
};

ValueNames::ValueNames(const ReportDefinition& definition)
{
    for (const MetricDefinition& value : reportValueDefinitions(definition))
        declared.insert(value.id, value);
    const auto add = [this](const QString& name, const QString& key) {
        keysOfNames.insert(name, key);
        namesOfKeys.insert(key, name);
    };
    for (const DetailName& detail : detailNames)
        add(QLatin1String(detail.name), QLatin1String(detail.id));
    // A metric of the definition that has a detail's name is meant by it.
    for (const ReportMetric& metric : definition.metrics())
        add(metric.id, qualifiedMetricId(metric, definition.idScheme()));
}

const MetricDefinition* ValueNames::find(const QString& name) const
{
    const auto found = declared.constFind(keysOfNames.value(name, name));
    return found == declared.constEnd() ? nullptr : &*found;
}

} // namespace vantrel::tool
