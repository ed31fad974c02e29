#pragma once

#include "definition/report_definition.h"
#include "metrics/metric_store.h"

#include <QMap>

/// The names by which people give values, and what they mean.
namespace vantrel::tool {

/// A detail of the application under its short name.
struct DetailName {
    const char* name;
    const char* id;
};
extern const DetailName detailNames[9];

/// What can be given a value: the definition's metrics and the details, by their names and by their
/// full keys.
class ValueNames {
public:
    explicit ValueNames(const report::ReportDefinition& definition);

    /// The declaration that a name means, or null.
    const MetricDefinition* find(const QString& name) const;
    QList<MetricDefinition> declarations() const { return declared.values(); }
    /// The name that people know a full key by.
    QString nameOf(const QString& key) const { return namesOfKeys.value(key, key); }
    /// The names without the full keys.
    QStringList names() const { return namesOfKeys.values(); }

private:
    QMap<QString, MetricDefinition> declared; ///< by full key
    QMap<QString, QString> keysOfNames;
    QMap<QString, QString> namesOfKeys;
};

} // namespace vantrel::tool
