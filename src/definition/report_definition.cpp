#include "definition/report_definition.h"

#include "definition/reading/definition_reader.h"
#include "definition/record_merging.h"
#include "definition/schema/schema_validation.h"
#include "definition/schema/text_limits.h"
#include "host/error_message.h"
#include "host/whole_file.h"

#include <QObject>

#include <algorithm>
#include <memory>

namespace vantrel::report {

namespace {

template <typename Record>
QList<Record> inDisplayOrder(QList<Record> list)
{
    std::stable_sort(list.begin(), list.end(),
                     [](const Record& a, const Record& b) { return a.order < b.order; });
    return list;
}

QString sourceLine(int indent, const QString& name, const QUrl& url)
{
    return QStringLiteral("%1%2 (%3)\n").arg(QString(indent, u' '), name, url.toString());
}

/// Whether a text is worth reading.
bool checkDocument(const QByteArray& xml, const QUrl& url, const QString& schemaPath,
                   QString* error, int messageMode)
{
    return checkTextLimits(xml, url, error) &&
           (schemaPath.isEmpty() || validateDefinition(xml, url, schemaPath, error, messageMode));
}

constexpr FileMessages documentFileMessages{
    "File '%1' does not exist",
    "File '%1' could not be opened for reading",
    "File '%1' is not readable",
};

bool readDocumentFile(const QString& path, QByteArray* xml, QString* error)
{
    return readWholeFile(path, documentFileMessages, xml, error);
}

} // namespace

ReportDefinition::ReportDefinition(const QList<ReportMetric>& metrics, const QString& name,
                                   const QUrl& url)
    : idRules(ReportIdScheme::builtin()), reportName(name), address(url)
{
    setMetrics(metrics);
}

ReportDefinition* ReportDefinition::load(const QByteArray& xml, const QUrl& url,
                                         const QString& schemaPath, QString* error, int messageMode,
                                         const ReportIdScheme& scheme)
{
    if (!checkDocument(xml, url, schemaPath, error, messageMode))
        return nullptr;
    auto definition = std::make_unique<ReportDefinition>();
    definition->setIdScheme(scheme);
    XmlSource source(xml, url, error);
    return readDefinition(*definition, source, FullReport) ? definition.release() : nullptr;
}

ReportDefinition* ReportDefinition::loadFile(const QString& path, const QString& schemaPath,
                                             QString* error, int messageMode,
                                             const ReportIdScheme& scheme)
{
    QByteArray xml;
    if (!readDocumentFile(path, &xml, error))
        return nullptr;
    return load(xml, QUrl::fromLocalFile(path), schemaPath, error, messageMode, scheme);
}

bool ReportDefinition::merge(const QByteArray& xml, const QUrl& url, const QString& schemaPath,
                             QString* error, int messageMode)
{
    if (!checkDocument(xml, url, schemaPath, error, messageMode))
        return false;
    XmlSource source(xml, url, error);
    return readDefinition(*this, source, PartialReport);
}

bool ReportDefinition::mergeFile(const QString& path, const QString& schemaPath, QString* error,
                                 int messageMode)
{
    QByteArray xml;
    return readDocumentFile(path, &xml, error) &&
           merge(xml, QUrl::fromLocalFile(path), schemaPath, error, messageMode);
}

void ReportDefinition::setMetrics(const QList<ReportMetric>& list)
{
    metricRecords.clear();
    metricIdTree.clear();
    breakdowns = BreakdownIndex();
    for (const ReportMetric& metric : list)
        appendMetric(metric);
}

void ReportDefinition::appendMetric(const ReportMetric& metric)
{
    metricRecords.append(metric);
    metricIdTree.append(metric.id);
    breakdowns.insert(metric.breakdownSubsection, metrics().size() - 1);
}

bool ReportDefinition::mergeMetric(const ReportMetric& later)
{
    ReportMetric* earlier = metricRecords.find(later.id);
    if (!earlier)
        return false;
    const int position = metricRecords.indexOf(later.id);
    breakdowns.remove(earlier->breakdownSubsection, position);
    const bool isMerged = mergeRecord(earlier, later);
    breakdowns.insert(earlier->breakdownSubsection, position);
    return isMerged;
}

QSet<QString> ReportDefinition::metricIds() const
{
    QSet<QString> ids;
    for (const ReportMetric& metric : metrics())
        ids.insert(metric.id);
    return ids;
}

Summary ReportDefinition::summary() const
{
    return {summaryHeading, summaryFooter, inDisplayOrder(summaryEntries.all())};
}

void ReportDefinition::setSummary(const Summary& summary)
{
    summaryHeading = summary.heading;
    summaryFooter = summary.footer;
    summaryEntries.replaceAll(summary.entries);
}

QList<Subsection> ReportDefinition::subsections() const
{
    QList<Subsection> list = inDisplayOrder(subsectionRecords.all());
    for (Subsection& subsection : list)
        subsection.entries = inDisplayOrder(subsection.entries);
    return list;
}

void ReportDefinition::setSubsections(const QList<Subsection>& list)
{
    subsectionRecords.clear();
    adviceStringsInAll = 0;
    for (const Subsection& subsection : list)
        appendSubsection(subsection);
    breakdowns.forgetFound();
}

void ReportDefinition::appendSubsection(const Subsection& subsection)
{
    subsectionRecords.append(subsection);
    adviceStringsInAll += qMax(subsection.maxAdviceStrings, 0);
}

template <typename Change>
bool ReportDefinition::changeSubsection(const QString& id, const Change& change)
{
    Subsection* subsection = subsectionRecords.find(id);
    if (!subsection)
        return false;
    adviceStringsInAll -= qMax(subsection->maxAdviceStrings, 0);
    const bool isChanged = change(subsection);
    adviceStringsInAll += qMax(subsection->maxAdviceStrings, 0);
    return isChanged;
}

bool ReportDefinition::mergeSubsection(const Subsection& later)
{
    return changeSubsection(later.id,
                            [&](Subsection* subsection) { return mergeRecord(subsection, later); });
}

bool ReportDefinition::replaceSubsection(const Subsection& later)
{
    return changeSubsection(later.id, [&](Subsection* subsection) {
        *subsection = later;
        return true;
    });
}

const ReportMetric* ReportDefinition::findMissingBreakdown()
{
    const int position =
        breakdowns.findMissing([this](const QString& id) { return hasSubsection(id); });
    return position < 0 ? nullptr : &metrics().at(position);
}

void ReportDefinition::clearContent()
{
    setMetrics({});
    setSummary({});
    setSubsections({});
    mergedReports.clear();
}

void ReportDefinition::appendMarkup(QString& text, const QString& markup)
{
    if (!text.isEmpty())
        text += QLatin1String("<br/>");
    text += markup;
}

QString ReportDefinition::describeSources(int indent) const
{
    QString text = sourceLine(indent, reportName, address);
    for (auto it = mergedReports.begin(); it != mergedReports.end(); ++it)
        text += sourceLine(indent, it.key(), it.value());
    return text;
}

QString ReportDefinition::findMetricIdCollision(const QString& id, QString* error) const
{
    const auto reportEmptyPart = [error](const QString& culprit) {
        *error = QObject::tr("%1 contains empty parts.").arg(culprit);
    };
    clearError(error);
    if (error && MetricIdTree::hasEmptyPart(id)) {
        reportEmptyPart(id);
        return QString();
    }
    const int collision = metricIdTree.firstCollision(id);
    const int emptyPart = metricIdTree.firstWithEmptyPart();
    if (error && emptyPart >= 0 && (collision < 0 || emptyPart <= collision)) {
        reportEmptyPart(metrics().at(emptyPart).id);
        return QString();
    }
    return collision < 0 ? QString() : metrics().at(collision).id;
}

} // namespace vantrel::report
