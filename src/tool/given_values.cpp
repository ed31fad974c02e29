#include "tool/given_values.h"

#include "definition/metric_ids.h"
#include "tool/findings.h"
#include "tool/near_name.h"

#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>

#include <cmath>
#include <cstdio>
#include <limits>
#include <optional>

namespace vantrel::tool {

using namespace report;

namespace {

constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

QString wordOf(MetricType type)
{
    switch (type) {
    case MetricType::String:
        return QStringLiteral("a text");
    case MetricType::Bool:
        return QStringLiteral("true or false");
    case MetricType::Integer:
        return QStringLiteral("a whole number");
    default:
        return QStringLiteral("a number");
    }
}

std::optional<int> wholeNumber(double number)
{
    if (number != std::trunc(number) || std::abs(number) > std::numeric_limits<int>::max())
        return std::nullopt;
    return int(number);
}

std::optional<double> doubleOf(const QJsonValue& json)
{
    if (json.isDouble())
        return json.toDouble();
    return json.isNull() ? std::optional<double>(notANumber) : std::nullopt;
}

/// Invalid if the value hasn't the type.
QVariant storedValue(const QJsonValue& json, MetricType type)
{
    switch (type) {
    case MetricType::String:
        return json.isString() ? QVariant(json.toString()) : QVariant();
    case MetricType::Bool:
        return json.isBool() ? QVariant(json.toBool()) : QVariant();
    case MetricType::Integer: {
        const auto number = json.isDouble() ? wholeNumber(json.toDouble()) : std::nullopt;
        return number ? QVariant(*number) : QVariant();
    }
    case MetricType::Double: {
        const auto number = doubleOf(json);
        return number ? QVariant(*number) : QVariant();
    }
    case MetricType::DoubleWithPrecision: {
        const auto number = doubleOf(json.isObject() ? json[QLatin1String("value")] : json);
        const int precision = json[QLatin1String("precision")].toInt(6);
        return number ? fromDoubleWithPrecision({*number, precision}) : QVariant();
    }
    case MetricType::None:
        break;
    }
    return QVariant();
}

/// A value as it is typed: a text stands for itself, all else is as in a file.
QJsonValue typedValue(const QString& text, MetricType type)
{
    if (type == MetricType::String)
        return text;
    if (type == MetricType::Bool && (text == QLatin1String("true") || text == QLatin1String("1")))
        return true;
    if (type == MetricType::Bool && (text == QLatin1String("false") || text == QLatin1String("0")))
        return false;
    if (text.compare(QLatin1String("nan"), Qt::CaseInsensitive) == 0)
        return QJsonValue::Null;
    bool isNumber = false;
    const double number = text.toDouble(&isNumber);
    return isNumber ? QJsonValue(number) : QJsonValue(text);
}

Finding unknownName(const QString& file, const QString& name, const QStringList& known)
{
    Finding finding =
        fileError(file, QStringLiteral("the definition has nothing of the name '%1'").arg(name));
    finding.suggestion = nearName(name, known);
    return finding;
}

/// Collects what is wrong with the values of one source.
class Taking {
public:
    Taking(const QString& sourceName, const ValueNames& knownNames, CustomReport* filledReport)
        : source(sourceName), names(knownNames), report(filledReport)
    {}

    void take(const QString& name, const QJsonValue& json)
    {
        const MetricDefinition* const metric = names.find(name);
        if (!metric)
            findings.append(unknownName(source, name, names.names()));
        else
            takeDeclared(name, *metric, json);
    }

    void takeDeclared(const QString& name, const MetricDefinition& metric, const QJsonValue& json)
    {
        const QVariant value = storedValue(json, metric.type);
        if (!value.isValid()) {
            refuse(QStringLiteral("the value of '%1' must be %2").arg(name, wordOf(metric.type)));
        } else if (report->setMetricValue(metric.id, value, RejectUnknown) != VANTREL_OK) {
            refuse(QString::fromUtf8(report->errorMessage()));
        }
    }

    void refuse(const QString& text) { findings.append(fileError(source, text)); }

    ExitCode result() const
    {
        printFindings(findings);
        return findings.isEmpty() ? Done : WrongInput;
    }

private:
    const QString source;
    const ValueNames& names;
    CustomReport* const report;
    QList<Finding> findings;
};

std::optional<QByteArray> readInput(const QString& path, QString* error)
{
    QFile file(path);
    const bool isOpen = path == QLatin1String("-") ? file.open(stdin, QIODevice::ReadOnly)
                                                   : file.open(QIODevice::ReadOnly);
    const QByteArray bytes = isOpen ? file.readAll() : QByteArray();
    if (isOpen && file.error() == QFileDevice::NoError)
        return bytes;
    *error = file.errorString();
    return std::nullopt;
}

/// Where the text that was parsed so far ends, as editors count.
Finding malformedJson(const QString& file, const QByteArray& bytes, const QJsonParseError& problem)
{
    const QByteArray before = bytes.left(problem.offset);
    Finding finding = fileError(file, QStringLiteral("no JSON: %1").arg(problem.errorString()));
    finding.line = before.count('\n') + 1;
    finding.column = before.size() - before.lastIndexOf('\n');
    return finding;
}

QJsonValue valueAt(const QJsonObject& data, const QString& path)
{
    QJsonValue value = data;
    for (const QString& part : path.split(u'.'))
        value = value.toObject().value(part);
    return value;
}

/// The values of a metric data file that the definition has a place for.
void takeNested(const QJsonObject& data, const ValueNames& names, Taking* taking)
{
    for (const MetricDefinition& metric : names.declarations()) {
        const QJsonValue value = valueAt(data, metric.valuePath);
        if (!value.isUndefined())
            taking->takeDeclared(names.nameOf(metric.id), metric, value);
    }
}

} // namespace

ExitCode takeValueFile(const QString& path, const ValueNames& names, CustomReport* report)
{
    QString error;
    const std::optional<QByteArray> bytes = readInput(path, &error);
    if (!bytes) {
        printFindings({fileError(path, QStringLiteral("can't be read: %1").arg(error))});
        return FileTrouble;
    }
    QJsonParseError problem;
    const QJsonDocument document = QJsonDocument::fromJson(*bytes, &problem);
    if (problem.error != QJsonParseError::NoError) {
        printFindings({malformedJson(path, *bytes, problem)});
        return WrongInput;
    }
    Taking taking(path, names, report);
    const QJsonObject values = document.object();
    const QJsonValue nested = values.value(QLatin1String("data"));
    if (!document.isObject()) {
        taking.refuse(QStringLiteral("holds a list; values stand in an object"));
    } else if (nested.isObject() && !names.find(QStringLiteral("data"))) {
        takeNested(nested.toObject(), names, &taking);
    } else {
        for (auto it = values.begin(); it != values.end(); ++it)
            taking.take(it.key(), it.value());
    }
    return taking.result();
}

ExitCode takeSetting(const QString& setting, const ValueNames& names, CustomReport* report)
{
    const QString option = QStringLiteral("--set");
    Taking taking(option, names, report);
    const int equals = setting.indexOf(u'=');
    const QString name = setting.left(equals);
    if (equals < 0) {
        printFindings({fileError(option, QStringLiteral("'%1' is no NAME=VALUE").arg(setting))});
        return WrongUsage;
    }
    const MetricDefinition* const metric = names.find(name);
    taking.take(name,
                typedValue(setting.mid(equals + 1), metric ? metric->type : MetricType::None));
    return taking.result();
}

ExitCode takeAdvice(const QString& setting, CustomReport* report)
{
    const QString option = QStringLiteral("--advice");
    const int equals = setting.indexOf(u'=');
    const QString where = setting.left(equals);
    if (equals < 0) {
        printFindings({fileError(option, QStringLiteral("'%1' is no WHERE=TEXT").arg(setting))});
        return WrongUsage;
    }
    const QByteArray id = where.toUtf8();
    const QByteArray text = setting.mid(equals + 1).toUtf8();
    int code = VANTREL_OK;
    QStringList known{QStringLiteral("dominant")};
    for (const SummaryEntry& entry : report->summary().entries)
        known.append(entry.id);
    for (const Subsection& subsection : report->subsections())
        known.append(subsection.id);
    if (!known.contains(where)) {
        printFindings({unknownName(option, where, known)});
        return WrongInput;
    }
    if (report->hasSummaryEntry(where))
        code = report->setSummaryAdviceFromCaller(id, text);
    else if (report->hasSubsection(where))
        code = report->setSectionAdviceFromCaller(id, text);
    else
        code = report->setDominantMetricAdvice(text);
    if (code == VANTREL_OK)
        return Done;
    printFindings({fileError(option, QString::fromUtf8(report->errorMessage()))});
    return WrongInput;
}

ExitCode checkMissingValues(const QString& file, const ValueNames& names,
                            const CustomReport& report)
{
    QStringList missing;
    for (const char* id : {ids::applicationDetailsExeName, ids::applicationDetailsProcessesPlain}) {
        if (!report.metricValue(QLatin1String(id)).isValid())
            missing.append(names.nameOf(QLatin1String(id)));
    }
    for (const ReportMetric& metric : static_cast<const ReportDefinition&>(report).metrics()) {
        const QString key = qualifiedMetricId(metric, report.idScheme());
        if (!report.metricValue(key).isValid() && !missing.contains(metric.id))
            missing.append(metric.id);
    }
    if (missing.isEmpty())
        return Done;
    printFindings({fileError(
        file, QStringLiteral("these have no value: %1").arg(missing.join(QLatin1String(", "))))});
    return WrongInput;
}

} // namespace vantrel::tool
