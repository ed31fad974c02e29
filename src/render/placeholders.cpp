#include "render/placeholders.h"

#include "definition/metric_ids.h"

#include <QObject>

#include <optional>

namespace vantrel {

using namespace report;

namespace {

QString span(const QString& classPath, const QString& textPath)
{
    return QStringLiteral("<span class=\"{{%1}}\">{{%2}}</span>").arg(classPath, textPath);
}

QMap<QString, QString> makeBuiltinPlaceholders()
{
    const auto path = [](const char* id) { return QString::fromLatin1(id); };
    QMap<QString, QString> map;
    map[QStringLiteral("corvane.appDetails.exeName")] =
        QStringLiteral("{{%1}}").arg(path(ids::applicationDetailsExeName));
    map[QStringLiteral("corvane.dominant.metric.advice")] =
        QStringLiteral("{{{%1}}}").arg(path(ids::overviewAdvice));
    map[QStringLiteral("corvane.dominant.metric.bound")] =
        span(path(ids::overviewBound1Type), path(ids::overviewBound1Long));
    map[QStringLiteral("corvane.dominant.metric.name")] =
        span(path(ids::overviewBound1Type), path(ids::overviewBound1Short));
    map[QStringLiteral("corvane.dominant.metric.subsection")] =
        span(path(ids::overviewBound1SubsectionId), path(ids::overviewBound1SubsectionHeading));
    map[QStringLiteral("corvane.secondaryDominant.metric.bound")] =
        span(path(ids::overviewBound2Type), path(ids::overviewBound2Long));
    map[QStringLiteral("corvane.secondaryDominant.metric.name")] =
        span(path(ids::overviewBound2Type), path(ids::overviewBound2Short));
    map[QStringLiteral("corvane.secondaryDominant.metric.subsection")] =
        span(path(ids::overviewBound2SubsectionId), path(ids::overviewBound2SubsectionHeading));
    return map;
}

QString invalidPlaceholderMessage(const ReportDefinition& definition, const QString& key)
{
    QString builtins;
    for (auto it = builtinPlaceholders().begin(); it != builtinPlaceholders().end(); ++it)
        builtins += QStringLiteral("%1${%2}\n").arg(QString(8, u' '), it.key());
    return QObject::tr("Invalid placeholder \"${%1}\" in report:\n%2\nThe built-in placeholders "
                       "are:\n%3\nYou can also reference metric values by using the metric id:\n"
                       "    ${metricId}  : the metric value\n"
                       "    ${*metricId} : the metric value and units, scaled to a suitable SI "
                       "prefix\n")
        .arg(key, definition.describeSources(8), builtins);
}

/// The template text for one placeholder, if it means anything.
std::optional<QString> replacementFor(const ReportDefinition& definition, const QString& key)
{
    const auto builtin = builtinPlaceholders().constFind(key);
    if (builtin != builtinPlaceholders().constEnd())
        return *builtin;
    const bool withUnits = key.size() > 1 && key.startsWith(u'*');
    const QString id = withUnits ? key.mid(1) : key;
    if (!definition.hasMetric(id))
        return std::nullopt;
    const QString full = qualifiedMetricId(definition.metric(id), definition.idScheme());
    if (!withUnits)
        return QStringLiteral("<span class=\"%1\">{{%2}}</span>").arg(full, full);
    return QStringLiteral("<span class=\"%1\">{{toPrecision (%2Value (lookupMetric \"%3\")) %4}}"
                          "</span> {{%2Units (lookupMetric \"%3\") symbol=(lookupMetricUnits "
                          "\"%3\")}}")
        .arg(full, QStringLiteral("si"), full, QStringLiteral("3"));
}

/// Position of the "}" that ends the placeholder whose "${" ends before @p start, if it is one: it
/// holds no "$", "{" or "}".
std::optional<int> placeholderEnd(const QString& text, int start)
{
    for (int i = start; i < text.size(); ++i) {
        if (text.at(i) == u'}')
            return i;
        if (text.at(i) == u'$' || text.at(i) == u'{')
            return std::nullopt;
    }
    return std::nullopt;
}

} // namespace

const QMap<QString, QString>& builtinPlaceholders()
{
    static const auto& map = *new QMap<QString, QString>(makeBuiltinPlaceholders());
    return map;
}

QString expandPlaceholders(const ReportDefinition& definition, const QString& text, QString* error)
{
    QString result;
    int copied = 0;
    for (int at = text.indexOf(QLatin1String("${")); at >= 0;
         at = text.indexOf(QLatin1String("${"), at + 2)) {
        const std::optional<int> end = placeholderEnd(text, at + 2);
        if (!end)
            continue;
        result += text.midRef(copied, at - copied);
        copied = *end + 1;
        const QString key = text.mid(at + 2, *end - at - 2).trimmed();
        error->clear();
        const std::optional<QString> replacement = replacementFor(definition, key);
        if (!replacement) {
            *error = invalidPlaceholderMessage(definition, key);
            return QString();
        }
        result += *replacement;
    }
    return result += text.midRef(copied);
}

} // namespace vantrel
