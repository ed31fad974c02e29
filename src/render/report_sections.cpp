#include "render/report_sections.h"

#include "host/error_message.h"
#include "render/branding.h"
#include "render/placeholders.h"

#include <QDebug>
#include <QMap>
#include <QObject>

namespace vantrel {

using namespace report;

namespace {

/// Makes the path in the document that decides whether a row shows. The id isn't qualified, so
/// it reaches the built-in metrics only.
void insertVisibility(QJsonObject& row, const QString& requirement)
{
    if (requirement.isEmpty())
        return;
    const bool isNegated = requirement.startsWith(u'!');
    row.insert(isNegated ? QStringLiteral("hidden") : QStringLiteral("visible"),
               QLatin1String("data.") + requirement.midRef(isNegated ? 1 : 0));
}

void insertGiven(QJsonObject& row, const QString& key, const QString& text)
{
    if (!text.isEmpty())
        row.insert(key, text);
}

QString rawTemplate(const QString& path)
{
    return QStringLiteral("{{{%1}}}").arg(path);
}

/// What the name of an entry's own colour begins with; the key of its metric follows.
QString entryColourPrefix(const QString& subsectionKey, int index)
{
    return subsectionKey + u'-' + QString::number(index) + u'-';
}

QJsonObject makeSummaryRow(const ReportDefinition& definition, const SummaryEntry& entry,
                           QString* error)
{
    const ReportMetric metric = findReportMetric(definition, entry.reportMetric);
    const QString metricKey = qualifiedMetricId(metric, definition.idScheme());
    QJsonObject row{
        {QStringLiteral("descriptionHtmlTemplate"),
         expandPlaceholders(definition, entry.description, error)},
        {QStringLiteral("heading"), metric.displayName},
        {QStringLiteral("metricId"), metricKey},
        {QStringLiteral("colorName"), metricKey},
        {QStringLiteral("adviceHtmlTemplate"),
         rawTemplate(summaryAdviceKey(entry.id, definition.idScheme()))},
    };
    insertGiven(row, QStringLiteral("chartLabel"), entry.chartLabel);
    insertVisibility(row, entry.requirement);
    return row;
}

QJsonArray makeBounds(const ReportDefinition& definition)
{
    QJsonArray bounds;
    for (const ReportMetric& metric : definition.metrics()) {
        const QString key = qualifiedMetricId(metric, definition.idScheme());
        bounds.append(
            QJsonObject{{QStringLiteral("type"), key}, {QStringLiteral("colorName"), key}});
    }
    return bounds;
}

QJsonObject makeMetricRow(const ReportDefinition& definition, const SubsectionEntry& entry,
                          const QString& colourPrefix, QString* error)
{
    const ReportMetric metric = findReportMetric(definition, entry.reportMetric);
    const QString metricKey = qualifiedMetricId(metric, definition.idScheme());
    QJsonObject row{
        {QStringLiteral("metricId"), metricKey},
        {QStringLiteral("colorName"),
         entry.colour.isValid() ? colourPrefix + metricKey : metricKey},
    };
    insertVisibility(row, entry.requirement);
    insertGiven(row, QStringLiteral("displayName"), entry.displayName);
    insertGiven(row, QStringLiteral("group"), entry.group);
    if (!entry.machineReadableOnly) {
        row.insert(QStringLiteral("template"), metric.units == QLatin1String("%")
                                                   ? QStringLiteral("percentageTemplate")
                                                   : QStringLiteral("numberTemplate"));
    }
    if (entry.unitPrefix == UnitPrefixChoice::Iec)
        row.insert(QStringLiteral("useIEC"), true);
    if (!entry.description.isEmpty()) {
        row.insert(QStringLiteral("descriptionHtmlTemplate"),
                   expandPlaceholders(definition, entry.description, error));
    }
    if (hasMaxBarValue(entry))
        row.insert(QStringLiteral("maxBarValue"), entry.maxBarValue);
    return row;
}

QJsonObject makeSpacerRow(const SubsectionEntry& entry)
{
    QJsonObject row{{QStringLiteral("template"), QStringLiteral("spacerTemplate")}};
    insertVisibility(row, entry.requirement);
    return row;
}

/// A bad placeholder in one entry's description doesn't stop the walk, and the next good one in
/// another description takes its message away.
QJsonArray makeRows(const ReportDefinition& definition, const Subsection& subsection,
                    QString* error)
{
    const QString key = qualifiedSubsectionId(subsection.id, definition.idScheme());
    QJsonArray rows;
    for (int i = 0; i < subsection.entries.size(); ++i) {
        const SubsectionEntry& entry = subsection.entries.at(i);
        rows.append(entry.isSpacer
                        ? makeSpacerRow(entry)
                        : makeMetricRow(definition, entry, entryColourPrefix(key, i), error));
    }
    return rows;
}

QJsonArray makeAdvice(const Subsection& subsection, const ReportIdScheme& scheme)
{
    QJsonArray advice;
    for (int n = 1; n <= subsection.maxAdviceStrings; ++n)
        advice.append(rawTemplate(subsectionAdviceKey(subsection.id, scheme, n)));
    return advice;
}

QJsonObject makeSubsection(const ReportDefinition& definition, const Subsection& subsection,
                           QString* error)
{
    const ReportIdScheme& scheme = definition.idScheme();
    const QString description = expandPlaceholders(definition, subsection.text, error);
    if (!error->isEmpty()) {
        *error += QObject::tr(" (in description of subsection %1)").arg(subsection.id);
        return QJsonObject();
    }
    QJsonObject section{
        {QStringLiteral("descriptionHtmlTemplate"), description},
        {QStringLiteral("heading"), subsection.heading},
        {QStringLiteral("colorName"), qualifiedSubsectionId(subsection.id, scheme)},
        {QStringLiteral("adviceHtmlTemplate"), makeAdvice(subsection, scheme)},
        {QStringLiteral("metrics"), makeRows(definition, subsection, error)},
    };
    if (!subsection.errorMetric.isEmpty()) {
        section.insert(QStringLiteral("errorHtmlTemplate"),
                       QStringLiteral("{{%1}}").arg(subsection.errorMetric));
    }
    insertVisibility(section, subsection.requirement);
    return section;
}

/// Colours by name, sorted: adding to the middle of a large QJsonObject moves what is behind.
using ColourMap = QMap<QString, QJsonArray>;

/// A missing colour is black.
QJsonArray colourToHsl(const Colour& given)
{
    const Colour colour = given.isValid() ? given : Colour::fromRgb(0, 0, 0);
    return {colour.hslHue() % 360, colour.hslSaturation() * 100 / 255,
            colour.lightness() * 100 / 255};
}

void insertColours(ColourMap& colours, const ReportDefinition& definition,
                   const Subsection& subsection)
{
    const QString key = qualifiedSubsectionId(subsection.id, definition.idScheme());
    colours.insert(key, colourToHsl(subsection.colour));
    for (int i = 0; i < subsection.entries.size(); ++i) {
        const SubsectionEntry& entry = subsection.entries.at(i);
        if (!entry.colour.isValid())
            continue;
        const ReportMetric metric = findReportMetric(definition, entry.reportMetric);
        colours.insert(entryColourPrefix(key, i) + qualifiedMetricId(metric, definition.idScheme()),
                       colourToHsl(entry.colour));
    }
}

} // namespace

ReportMetric findReportMetric(const ReportDefinition& definition, const QString& id)
{
    if (definition.hasMetric(id))
        return definition.metric(id);
    qDebug() << "No metric with the ID" << id << "was found";
    ReportMetric substitute;
    substitute.id = QObject::tr("Unknown Metric ID: %1").arg(id);
    substitute.displayName = substitute.id;
    substitute.units = QStringLiteral("%");
    return substitute;
}

QJsonObject makeSummaryData(const ReportDefinition& definition, QString* error)
{
    QString unwanted;
    error = error ? error : &unwanted;
    error->clear();
    const Summary summary = definition.summary();
    QJsonObject data;
    data.insert(QStringLiteral("headingHtmlTemplate"),
                expandPlaceholders(definition, summary.heading, error));
    if (!error->isEmpty())
        return QJsonObject();
    QJsonArray rows;
    for (const SummaryEntry& entry : summary.entries) {
        rows.append(makeSummaryRow(definition, entry, error));
        if (!error->isEmpty()) {
            *error += QObject::tr(" (in summary entry %1)").arg(entry.reportMetric);
            return QJsonObject();
        }
    }
    data.insert(QStringLiteral("rows"), rows);
    data.insert(QStringLiteral("bounds"), makeBounds(definition));
    data.insert(QStringLiteral("footerHtmlTemplate"),
                expandPlaceholders(definition, summary.footer, error));
    if (!error->isEmpty()) {
        *error += QObject::tr(" (in summary footer)");
        return QJsonObject();
    }
    data.insert(QStringLiteral("adviceHtmlTemplate"), QStringLiteral("{{{overview.advice}}}"));
    data.insert(QStringLiteral("primaryBound"), QStringLiteral("overview.bound1.type"));
    return data;
}

QJsonArray makeSubsectionsData(const ReportDefinition& definition, QString* error)
{
    QString unwanted;
    error = error ? error : &unwanted;
    error->clear();
    QJsonArray sections;
    for (const Subsection& subsection : definition.subsections()) {
        if (subsection.entries.isEmpty())
            continue;
        sections.append(makeSubsection(definition, subsection, error));
        if (!error->isEmpty())
            return QJsonArray();
    }
    return sections;
}

QJsonObject makeColorData(const ReportDefinition& definition, QString* error)
{
    clearError(error);
    ColourMap colours;
    for (const ReportMetric& metric : definition.metrics())
        colours.insert(qualifiedMetricId(metric, definition.idScheme()),
                       colourToHsl(metric.colour));
    for (const Subsection& subsection : definition.subsections())
        insertColours(colours, definition, subsection);
    QJsonObject object;
    for (auto it = colours.begin(); it != colours.end(); ++it)
        object.insert(it.key(), it.value());
    return object;
}

bool makeReportSections(const ReportDefinition& definition, ReportSections* sections,
                        QString* error)
{
    QString unwanted;
    error = error ? error : &unwanted;
    sections->branding = makeBrandingData(definition);
    sections->summary = makeSummaryData(definition, error);
    if (!error->isEmpty())
        return false;
    sections->subsections = makeSubsectionsData(definition, error);
    if (!error->isEmpty())
        return false;
    sections->colors = makeColorData(definition, error);
    return error->isEmpty();
}

} // namespace vantrel
