#include "metrics/metric_store.h"

namespace vantrel {

bool MetricDefinition::operator==(const MetricDefinition& other) const
{
    return id == other.id && valuePath == other.valuePath && type == other.type &&
           units == other.units && displayName == other.displayName && version == other.version;
}

void MetricStore::addDefinition(const MetricDefinition& definition)
{
    definitions.insert(definition.id, definition);
}

void MetricStore::addDefinitions(const QList<MetricDefinition>& list)
{
    for (const MetricDefinition& definition : list)
        addDefinition(definition);
}

const MetricDefinition* MetricStore::findDefinition(const QString& id) const
{
    const auto found = definitions.constFind(id);
    return found == definitions.constEnd() ? nullptr : &*found;
}

void MetricStore::setValueOf(const MetricDefinition& definition, const QVariant& value)
{
    values.insert(definition.id, value);
}

bool MetricStore::setValue(const QString& id, const QVariant& value)
{
    const MetricDefinition* definition = findDefinition(id);
    if (definition)
        setValueOf(*definition, value);
    return definition != nullptr;
}

bool MetricStore::setDefaultValue(const QString& id)
{
    const MetricDefinition* definition = findDefinition(id);
    if (definition)
        setValueOf(*definition, defaultValueFor(definition->type));
    return definition != nullptr;
}

bool MetricStore::setUnits(const QString& id, const QString& units)
{
    const auto found = definitions.find(id);
    if (found == definitions.end())
        return false;
    found->units = units;
    return true;
}

bool MetricStore::findMissingValues(QStringList* missing) const
{
    bool complete = true;
    for (auto it = definitions.constBegin(); it != definitions.constEnd(); ++it) {
        if (values.contains(it.key()))
            continue;
        complete = false;
        if (missing)
            missing->append(it.key());
    }
    return complete;
}

} // namespace vantrel
