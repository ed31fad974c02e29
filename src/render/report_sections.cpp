#include "render/report_sections.h"

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
    if (requirement.startsWith(u'!'))
        row.insert(QStringLiteral("hidden"), QLatin1String("data.") + requirement.midRef(1));
    else
        row.insert(QStringLiteral("visible"), QLatin1String("data.") + requirement);
}

QString rawTemplate(const QString& path)
{
    return QStringLiteral("{{{%1}}}").arg(path);
}

QString entryColorName(const QString& subsectionKey, int index, const QString& metricKey)
{
    return QStringLiteral("%1-%2-%3").arg(subsectionKey, QString::number(index), metricKey);
}

QString entryColorName(const ReportDefinition& definition, const Subsection& subsection, int index)
{
    const ReportMetric metric =
        findReportMetric(definition, subsection.entries.at(index).reportMetric);
    return entryColorName(qualifiedSubsectionId(subsection.id, definition.idScheme()), index,
                          qualifiedMetricId(metric, definition.idScheme()));
}

QJsonObject makeSummaryRow(const ReportDefinition& definition, const SummaryEntry& entry,
                           QString* error)
{
    const ReportMetric metric = findReportMetric(definition, entry.reportMetric);
    const QString metricKey = qualifiedMetricId(metric, definition.idScheme());
    QJsonObject row;
    row.insert(QStringLiteral("descriptionHtmlTemplate"),
               expandPlaceholders(definition, entry.description, error));
    row.insert(QStringLiteral("heading"), metric.displayName);
    row.insert(QStringLiteral("metricId"), metricKey);
    row.insert(QStringLiteral("colorName"), metricKey);
    row.insert(QStringLiteral("adviceHtmlTemplate"),
               rawTemplate(summaryAdviceKey(entry.id, definition.idScheme())));
    if (!entry.chartLabel.isEmpty())
        row.insert(QStringLiteral("chartLabel"), entry.chartLabel);
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

QJsonObject makeMetricRow(const ReportDefinition& definition, const Subsection& subsection,
                          int index, QString* error)
{
    const SubsectionEntry& entry = subsection.entries.at(index);
    const ReportMetric metric = findReportMetric(definition, entry.reportMetric);
    const QString metricKey = qualifiedMetricId(metric, definition.idScheme());
    QJsonObject row;
    insertVisibility(row, entry.requirement);
    row.insert(QStringLiteral("metricId"), metricKey);
    if (!entry.machineReadableOnly) {
        row.insert(QStringLiteral("template"), metric.units == QLatin1String("%")
                                                   ? QStringLiteral("percentageTemplate")
                                                   : QStringLiteral("numberTemplate"));
    }
    row.insert(QStringLiteral("colorName"),
               entry.colour.isValid() ? entryColorName(definition, subsection, index) : metricKey);
    if (!entry.displayName.isEmpty())
        row.insert(QStringLiteral("displayName"), entry.displayName);
    if (entry.unitPrefix == UnitPrefixChoice::Iec)
        row.insert(QStringLiteral("useIEC"), true);
    if (!entry.description.isEmpty()) {
        row.insert(QStringLiteral("descriptionHtmlTemplate"),
                   expandPlaceholders(definition, entry.description, error));
    }
    if (hasMaxBarValue(entry))
        row.insert(QStringLiteral("maxBarValue"), entry.maxBarValue);
    if (!entry.group.isEmpty())
        row.insert(QStringLiteral("group"), entry.group);
    return row;
}

QJsonObject makeSpacerRow(const SubsectionEntry& entry)
{
    QJsonObject row;
    insertVisibility(row, entry.requirement);
    row.insert(QStringLiteral("template"), QStringLiteral("spacerTemplate"));
    return row;
}

/// A bad placeholder in one entry's description doesn't stop the walk, and the next good one in
/// another description takes its message away.
QJsonArray makeRows(const ReportDefinition& definition, const Subsection& subsection,
                    QString* error)
{
    QJsonArray rows;
    for (int i = 0; i < subsection.entries.size(); ++i) {
        const SubsectionEntry& entry = subsection.entries.at(i);
        rows.append(entry.isSpacer ? makeSpacerRow(entry)
                                   : makeMetricRow(definition, subsection, i, error));
    }
    return rows;
}

QJsonObject makeSubsection(const ReportDefinition& definition, const Subsection& subsection,
                           QString* error)
{
    const ReportIdScheme& scheme = definition.idScheme();
    QJsonObject section;
    section.insert(QStringLiteral("descriptionHtmlTemplate"),
                   expandPlaceholders(definition, subsection.text, error));
    if (!error->isEmpty()) {
        *error += QObject::tr(" (in description of subsection %1)").arg(subsection.id);
        return section;
    }
    section.insert(QStringLiteral("heading"), subsection.heading);
    section.insert(QStringLiteral("colorName"), qualifiedSubsectionId(subsection.id, scheme));
    QJsonArray advice;
    for (int n = 1; n <= subsection.maxAdviceStrings; ++n)
        advice.append(rawTemplate(subsectionAdviceKey(subsection.id, scheme, n)));
    section.insert(QStringLiteral("adviceHtmlTemplate"), advice);
    if (!subsection.errorMetric.isEmpty()) {
        section.insert(QStringLiteral("errorHtmlTemplate"),
                       QStringLiteral("{{%1}}").arg(subsection.errorMetric));
    }
    insertVisibility(section, subsection.requirement);
    section.insert(QStringLiteral("metrics"), makeRows(definition, subsection, error));
    return section;
}

QJsonArray colorToHsl(const Colour& color, QString* error)
{
    if (!color.isValid()) {
        *error += QObject::tr(" (Unknown colour %1)").arg(color.name());
        return QJsonArray();
    }
    return {color.hslHue() % 360, color.hslSaturation() * 100 / 255, color.lightness() * 100 / 255};
}

/// Colours by name, sorted: adding to the middle of a large QJsonObject moves what is behind.
using ColorMap = QMap<QString, QJsonArray>;

void insertColor(ColorMap& colors, const QString& name, const Colour& color, QString* error)
{
    colors.insert(name, colorToHsl(color.isValid() ? color : Colour::fromRgb(0, 0, 0), error));
}

QJsonObject toJson(const ColorMap& colors)
{
    QJsonObject object;
    for (auto it = colors.begin(); it != colors.end(); ++it)
        object.insert(it.key(), it.value());
    return object;
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
    QString ownError;
    if (!error)
        error = &ownError;
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
    QString ownError;
    if (!error)
        error = &ownError;
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
    QString ownError;
    if (!error)
        error = &ownError;
    error->clear();
    const ReportIdScheme& scheme = definition.idScheme();
    ColorMap colors;
    for (const ReportMetric& metric : definition.metrics())
        insertColor(colors, qualifiedMetricId(metric, scheme), metric.colour, error);
    for (const Subsection& subsection : definition.subsections()) {
        insertColor(colors, qualifiedSubsectionId(subsection.id, scheme), subsection.colour, error);
        for (int i = 0; i < subsection.entries.size(); ++i) {
            const Colour& color = subsection.entries.at(i).colour;
            if (color.isValid())
                insertColor(colors, entryColorName(definition, subsection, i), color, error);
        }
    }
    return error->isEmpty() ? toJson(colors) : QJsonObject();
}

bool makeReportSections(const ReportDefinition& definition, ReportSections* sections,
                        QString* error)
{
    QString ownError;
    if (!error)
        error = &ownError;
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
