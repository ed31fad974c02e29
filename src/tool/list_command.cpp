// What a definition names: all that values, advice, conditions and placeholders can refer to.
#include "render/placeholders.h"
#include "tool/command_line.h"
#include "tool/commands.h"
#include "tool/result_output.h"
#include "tool/value_names.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace vantrel::tool {

using namespace report;

namespace {

struct ListOptions {
    DefinitionOptions definition;
    bool asJson = false;
};

/// One group of things that go by an id; the fields in the order of their columns.
struct NamedGroup {
    const char* key;
    const char* heading;
    std::vector<const char*> fields;
    QList<QStringList> rows;
};

NamedGroup metricsOf(const ReportDefinition& definition)
{
    NamedGroup group{"metrics", "Metrics", {"id", "type", "units", "displayName"}, {}};
    for (const ReportMetric& metric : definition.metrics())
        group.rows.append(
            {metric.id, metricTypeName(metric.type), metric.units, metric.displayName});
    return group;
}

NamedGroup summaryOf(const ReportDefinition& definition)
{
    NamedGroup group{"summaryEntries", "Summary entries", {"id", "reportMetric"}, {}};
    for (const SummaryEntry& entry : definition.summary().entries)
        group.rows.append({entry.id, entry.reportMetric});
    return group;
}

NamedGroup subsectionsOf(const ReportDefinition& definition)
{
    NamedGroup group{"subsections", "Sections", {"id", "adviceSlots", "heading"}, {}};
    for (const Subsection& subsection : definition.subsections()) {
        group.rows.append({subsection.id, QString::number(qMax(subsection.maxAdviceStrings, 0)),
                           subsection.heading});
    }
    return group;
}

NamedGroup placeholdersOf(const ReportDefinition& definition)
{
    NamedGroup group{"placeholders", "Placeholders", {"id", "expandsTo"}, {}};
    const auto add = [&group, &definition](const QString& key) {
        const QString placeholder = QStringLiteral("${%1}").arg(key);
        QString error;
        group.rows.append({placeholder, expandPlaceholders(definition, placeholder, &error)});
    };
    for (const ReportMetric& metric : definition.metrics()) {
        add(metric.id);
        add(u'*' + metric.id);
    }
    for (const QString& key : builtinPlaceholders().keys())
        add(key);
    return group;
}

NamedGroup detailsOf(const ReportDefinition& definition)
{
    NamedGroup group{"details", "Details of the application", {"id", "type", "key"}, {}};
    const ValueNames names(definition);
    for (const DetailName& detail : detailNames) {
        const QString key = QLatin1String(detail.id);
        const MetricDefinition* const declared = names.find(key);
        group.rows.append({QLatin1String(detail.name),
                           declared ? metricTypeName(declared->type) : QString(), key});
    }
    return group;
}

QJsonArray toJson(const NamedGroup& group)
{
    QJsonArray list;
    for (const QStringList& row : group.rows) {
        QJsonObject object;
        for (int i = 0; i < row.size(); ++i)
            object.insert(QLatin1String(group.fields[std::size_t(i)]), row.at(i));
        list.append(object);
    }
    return list;
}

/// Columns as wide as their widest text; what a placeholder expands to is for programs.
QString toText(const NamedGroup& group)
{
    std::vector<int> widths(group.fields.size());
    for (const QStringList& row : group.rows) {
        for (int i = 0; i < row.size(); ++i)
            widths[std::size_t(i)] = qMax(widths[std::size_t(i)], row.at(i).size());
    }
    QString text = QLatin1String(group.heading) + u'\n';
    for (const QStringList& row : group.rows) {
        QString line = QStringLiteral("  ");
        for (int i = 0; i < row.size(); ++i)
            line += row.at(i).leftJustified(widths[std::size_t(i)] + 2);
        while (line.endsWith(u' '))
            line.chop(1);
        text += line + u'\n';
    }
    return text;
}

ExitCode list(const ListOptions& options)
{
    ReportDefinition definition;
    if (const ExitCode code = loadDefinition(filesOf(options.definition), &definition))
        return code;
    QStringList texts;
    QJsonObject object;
    for (const NamedGroup& group :
         {metricsOf(definition), summaryOf(definition), subsectionsOf(definition),
          placeholdersOf(definition), detailsOf(definition)}) {
        texts.append(toText(group));
        object.insert(QLatin1String(group.key), toJson(group));
    }
    return writeResult(QString(), options.asJson ? QJsonDocument(object).toJson()
                                                 : texts.join(u'\n').toUtf8());
}

} // namespace

void addListCommand(CLI::App& app, ExitCode* result)
{
    auto options = std::make_shared<ListOptions>();
    CLI::App* const command = app.add_subcommand(
        "list", "List what a definition names: metrics, summary entries, sections, placeholders");
    addDefinitionOptions(command, &options->definition);
    command->add_flag("--json", options->asJson, "As a JSON object of lists");
    command->footer("Example:\n  vantrel list report.xml --json | jq '.metrics[].id'");
    command->callback([options, result] { *result = list(*options); });
}

} // namespace vantrel::tool
