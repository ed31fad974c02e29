#pragma once

#include "metrics/metric_records.h"
#include "metrics/metric_value.h"

#include <QJsonObject>
#include <QList>
#include <QMap>
#include <QString>
#include <QStringList>
#include <QVariant>

class QFile;

namespace vantrel {

/// The declaration of a metric. One with a null id stands for a metric that doesn't exist.
struct MetricDefinition {
    QString id;
    QString valuePath; ///< dotted place of the value in the data object
    MetricType type = MetricType::None;
    QString units;       ///< null for none
    QString displayName; ///< null for none
    quint8 version = 0;  ///< metric data version that introduced the metric; 0 for always

    bool operator==(const MetricDefinition& other) const;
    bool operator!=(const MetricDefinition& other) const { return !(*this == other); }
};

/// The declared metrics of one report and their values, both sorted by id.
///
/// Values are stored as they come: whoever sets one has tested its type.
class MetricStore {
public:
    bool hasDefinition(const QString& id) const { return definitions.contains(id); }
    bool hasValue(const QString& id) const { return values.contains(id); }
    /// The definition of @p id, or the all-null one.
    MetricDefinition definition(const QString& id) const { return definitions.value(id); }
    /// The store's own record, or null. Valid until the definitions change.
    const MetricDefinition* findDefinition(const QString& id) const;
    /// The value of @p id, or an invalid variant.
    QVariant value(const QString& id) const { return values.value(id); }

    /// The ids of all declared metrics.
    QStringList ids() const { return definitions.keys(); }

    /// Declares a metric; a later declaration of the same id replaces an earlier one.
    void addDefinition(const MetricDefinition& definition);
    void addDefinitions(const QList<MetricDefinition>& list);
    /// Forgets the declarations, but not the values.
    void clearDefinitions() { definitions.clear(); }
    void clearValues() { values.clear(); }

    /// These three change nothing and return false if @p id isn't declared.
    bool setValue(const QString& id, const QVariant& value);
    bool setDefaultValue(const QString& id);
    bool setUnits(const QString& id, const QString& units);
    /// Sets the value of a metric that findDefinition() has found.
    void setValueOf(const MetricDefinition& definition, const QVariant& value);

    /// True if each declared metric has a value. Appends the ids of those that have none to
    /// @p missing, which may be null.
    bool findMissingValues(QStringList* missing) const;

    /// The values, nested along the dotted paths.
    QJsonObject toDataObject() const;
    /// The declarations, keyed by id.
    QJsonObject toMetricDataObject() const;
    /// The values of those @p ids that have one, in the order of ids.
    QList<MetricRecord> metricRecords(const QStringList& ids) const;

    /// @name Reading metric data
    /// False if something can't be read; what was read before stays. Some failures have no message,
    /// such as a declaration with an empty id or path or an unknown type, and a value of a metric
    /// without a type.
    /// @{
    /// Opens, reads and closes a file in UTF-8, and reads its text.
    bool readFile(QFile& file, QString* error);
    /// Reads a whole metric data file's text. A store without declarations takes those of the text
    /// or, if that has none, those of the installed default definition.
    bool readJson(const QString& text, QString* error);
    /// Replaces the declarations by what toMetricDataObject() has written.
    bool readDefinitions(const QJsonObject& entries, QString* error);
    /// Replaces the values by what toDataObject() has written. A metric that is newer than the data
    /// gets its absent value. @p error is not emptied: a text that it has counts as a failure.
    bool readValues(const QJsonObject& data, QString* error);
    /// @}

private:
    /// @p version is the metric data version of the data.
    bool readValues(const QJsonObject& data, int version, QString* error);

    QMap<QString, MetricDefinition> definitions;
    QMap<QString, QVariant> values;
};

} // namespace vantrel
