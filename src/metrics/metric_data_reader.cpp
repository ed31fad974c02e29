// Reads metric data files: declarations and values in JSON.
#include "metrics/metric_store.h"

#include "definition/compiled_in_schema.h"
#include "definition/default_definition.h"
#include "definition/report_definition.h"
#include "host/error_message.h"
#include "metrics/quantities/saturated_cast.h"
#include "metrics/value_definitions.h"

#include <QFile>
#include <QJsonDocument>
#include <QObject>
#include <QTextStream>

#include <limits>
#include <memory>

namespace vantrel {

namespace {

QString textOrNull(const QJsonValue& value)
{
    return value.isString() ? value.toString(QStringLiteral("")) : QString();
}

int truncatedNumber(const QJsonValue& value)
{
    return saturatedCast<int>(value.toDouble());
}

bool readDefinition(const QJsonObject& entry, MetricDefinition* definition, QString* error)
{
    for (const char* field : {"value", "type"}) {
        if (!entry.value(QLatin1String(field)).isString()) {
            return fail(error, QObject::tr("Field %1 not found for metric %2")
                                   .arg(QLatin1String(field), definition->id));
        }
    }
    definition->valuePath = entry.value(QLatin1String("value")).toString();
    definition->type = metricTypeFromName(entry.value(QLatin1String("type")).toString());
    definition->units = textOrNull(entry.value(QLatin1String("units")));
    definition->displayName = textOrNull(entry.value(QLatin1String("displayName")));
    definition->version = quint8(truncatedNumber(entry.value(QLatin1String("version"))));
    // An invalid definition is refused without a message.
    if (definition->id.isEmpty() || definition->valuePath.isEmpty() ||
        definition->type == MetricType::None)
        return false;
    if (definition->valuePath.count(u'.') >= maxPathParts) {
        return fail(error, QObject::tr("The value of metric %1 has a path of more than %2 parts.")
                               .arg(definition->id, QString::number(maxPathParts)));
    }
    return true;
}

/// The value at a dotted path; undefined if the path leads nowhere.
QJsonValue valueAt(const QJsonObject& data, const QString& path)
{
    QJsonValue current = data;
    for (const QStringRef& part : path.splitRef(u'.')) {
        if (!current.isObject())
            return QJsonValue::Undefined;
        current = current.toObject().value(QStringView(part));
    }
    return current;
}

double numberOrNaN(const QJsonValue& value)
{
    return value.toDouble(std::numeric_limits<double>::quiet_NaN());
}

/// What is wrong with a pair of value and precision; null if nothing is.
const char* faultOfPrecisePair(const QJsonValue& json)
{
    if (!json.isObject())
        return "Unable to parse double precision";
    const QJsonValue value = json[QLatin1String("value")];
    if (value.isUndefined())
        return "Unable to find double precision value";
    if (!value.isDouble() && !value.isNull())
        return "Invalid double precision value";
    const QJsonValue precision = json[QLatin1String("precision")];
    if (precision.isUndefined())
        return "Unable to find double precision precision";
    return precision.isDouble() ? nullptr : "Invalid double precision precision";
}

/// What is wrong with a value of this type; null if nothing is.
const char* faultOf(const QJsonValue& json, MetricType type)
{
    switch (type) {
    case MetricType::String:
        return json.isString() ? nullptr : "Metric %1 value is not a string";
    case MetricType::Bool:
        return json.isBool() ? nullptr : "Metric %1 value is not a boolean";
    case MetricType::Integer:
        return json.isDouble() ? nullptr : "Metric %1 value is not an integer";
    case MetricType::Double:
        return json.isDouble() || json.isNull() ? nullptr : "Metric %1 value is not a double";
    case MetricType::DoubleWithPrecision:
        return faultOfPrecisePair(json);
    case MetricType::None:
        break;
    }
    return nullptr;
}

QVariant toStoredValue(const QJsonValue& json, MetricType type)
{
    switch (type) {
    case MetricType::String:
        return json.toString();
    case MetricType::Bool:
        return json.toBool();
    case MetricType::Integer:
        return truncatedNumber(json);
    case MetricType::Double:
        return numberOrNaN(json);
    case MetricType::DoubleWithPrecision:
        return fromDoubleWithPrecision({numberOrNaN(json[QLatin1String("value")]),
                                        truncatedNumber(json[QLatin1String("precision")])});
    case MetricType::None:
        break;
    }
    return QVariant();
}

/// A metric without a type has no values, and is refused without a message.
bool readValue(const QJsonObject& data, const MetricDefinition& metric, QVariant* value,
               QString* error)
{
    const QJsonValue json = valueAt(data, metric.valuePath);
    if (json.isUndefined())
        *error = QObject::tr("Unable to access value %1").arg(metric.valuePath);
    if (!error->isEmpty())
        return false;
    if (metric.type == MetricType::None)
        return false;
    if (const char* fault = faultOf(json, metric.type)) {
        *error = QObject::tr(fault).replace(QLatin1String("%1"), metric.valuePath);
        return false;
    }
    *value = toStoredValue(json, metric.type);
    return true;
}

int versionOf(const QJsonObject& object)
{
    return metricDataVersion(truncatedNumber(object.value(QLatin1String("version"))));
}

bool declareDefaultMetrics(MetricStore* store, QString* error)
{
    const std::unique_ptr<report::ReportDefinition> definition(report::ReportDefinition::loadFile(
        report::defaultDefinitionPath(), report::compiledInSchema(), error, 0,
        report::ReportIdScheme::builtin()));
    if (!definition)
        return false;
    store->addDefinitions(reportValueDefinitions(*definition));
    return true;
}

} // namespace

bool MetricStore::readFile(QFile& file, QString* error)
{
    clearError(error);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text))
        return fail(error, QObject::tr("Unable to open file %1").arg(file.fileName()));
    QTextStream stream(&file);
    stream.setCodec("UTF-8");
    const QString text = stream.readAll();
    file.close();
    return readJson(text, error);
}

bool MetricStore::readJson(const QString& text, QString* error)
{
    clearError(error);
    QJsonParseError parseError;
    const QJsonDocument document = QJsonDocument::fromJson(text.toUtf8(), &parseError);
    if (parseError.error != QJsonParseError::NoError)
        return fail(error, QObject::tr("malformed JSON input"));
    if (!document.isObject())
        return fail(error, QObject::tr("Expected JSON data to be an object"));
    const QJsonObject top = document.object();
    if (definitions.isEmpty()) {
        const QJsonValue declared = top.value(QLatin1String("metricData"));
        if (declared.isObject() ? !readDefinitions(declared.toObject(), error)
                                : !declareDefaultMetrics(this, error))
            return false;
    }
    const QJsonValue nested = top.value(QLatin1String("data"));
    const QJsonObject data = nested.isObject() ? nested.toObject() : top;
    // The version stands among the values or beside them.
    const int version = versionOf(data.contains(QLatin1String("version")) ? data : top);
    return readValues(data, version, error) && findMissingValues(nullptr);
}

bool MetricStore::readDefinitions(const QJsonObject& entries, QString* error)
{
    clearError(error);
    clearDefinitions();
    for (auto it = entries.begin(); it != entries.end(); ++it) {
        if (!it.value().isObject())
            continue;
        MetricDefinition definition;
        definition.id = it.key();
        if (!readDefinition(it.value().toObject(), &definition, error))
            return false;
        addDefinition(definition);
    }
    return true;
}

bool MetricStore::readValues(const QJsonObject& data, QString* error)
{
    return readValues(data, versionOf(data), error);
}

bool MetricStore::readValues(const QJsonObject& data, int version, QString* error)
{
    QString unwanted;
    if (!error)
        error = &unwanted;
    clearValues();
    for (const MetricDefinition& metric : qAsConst(definitions)) {
        QVariant value = absentValueFor(metric.type);
        const bool isNewerThanData = version < metric.version;
        if (!isNewerThanData && !readValue(data, metric, &value, error))
            return false;
        setValueOf(metric, value);
    }
    return true;
}

} // namespace vantrel
