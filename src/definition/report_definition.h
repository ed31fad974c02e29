#pragma once

#include "definition/breakdown_index.h"
#include "definition/metric_id_tree.h"
#include "definition/record_list.h"
#include "definition/report_records.h"

#include <QMap>
#include <QSet>
#include <QUrl>

namespace vantrel::report {

class MessageHandler;

/// What a report has, shows and is called: the content of one definition document.
///
/// A value object of implicitly shared containers. It holds no values of metrics.
class ReportDefinition {
public:
    /// What the schema check hands its messages to.
    using MessageHandler = report::MessageHandler;

    ReportDefinition() = default;
    /// A definition under the built-in id scheme that has metrics and nothing else.
    ReportDefinition(const QList<ReportMetric>& metrics, const QString& name, const QUrl& url);

    /// Reads a full definition document.
    ///
    /// @param xml        the document's text
    /// @param url        where it came from, for messages; empty for a text in memory
    /// @param schemaPath the schema that the text is checked against; empty for no check
    /// @param error      takes the message, may be null. It can be set although a definition is
    ///                   returned, by trouble that doesn't stop the reading.
    /// @param messageMode 0, or 1 to hand the schema check's messages on to Qt's handler as well
    /// @param scheme     the ids of the new definition
    /// @return a definition that the caller owns, or null
    static ReportDefinition* load(const QByteArray& xml, const QUrl& url, const QString& schemaPath,
                                  QString* error, int messageMode, const ReportIdScheme& scheme);
    /// The same from a file. A file that can't be read gives a bare message.
    static ReportDefinition* loadFile(const QString& path, const QString& schemaPath,
                                      QString* error, int messageMode,
                                      const ReportIdScheme& scheme);

    /// Adds a partial document, whose metrics, summary and subsections supplement or change what
    /// is there. The logo and its link go back to the default ones. Parameters are those of load().
    ///
    /// @return false if the document is refused. What it changed before the place of its fault
    ///         stays changed; one that is refused before its sections are read changes the logo and
    ///         its link at most.
    bool merge(const QByteArray& xml, const QUrl& url, const QString& schemaPath, QString* error,
               int messageMode);
    /// The same from a file. A file that can't be read gives a bare message.
    bool mergeFile(const QString& path, const QString& schemaPath, QString* error, int messageMode);

    const ReportIdScheme& idScheme() const { return idRules; }
    void setIdScheme(const ReportIdScheme& scheme) { idRules = scheme; }
    QString name() const { return reportName; }
    void setName(const QString& name) { reportName = name; }
    QUrl url() const { return address; }
    void setUrl(const QUrl& url) { address = url; }
    QString logo() const { return logoImage; }
    void setLogo(const QString& logo) { logoImage = logo; }
    QString logoLink() const { return logoTarget; }
    void setLogoLink(const QString& link) { logoTarget = link; }

    /// The metrics in document order.
    const QList<ReportMetric>& metrics() const { return metricRecords.all(); }
    void setMetrics(const QList<ReportMetric>& list);
    void appendMetric(const ReportMetric& metric);
    /// Merges a later record into the first one of its id; false if there is none.
    bool mergeMetric(const ReportMetric& later);
    QSet<QString> metricIds() const;
    bool hasMetric(const QString& id) const { return metricRecords.contains(id); }
    /// The first metric of this id, or a default record.
    ReportMetric metric(const QString& id) const { return metricRecords.value(id); }

    /// The summary with its entries in display order.
    Summary summary() const;
    void setSummary(const Summary& summary);
    /// Adds markup to the heading or the footer, on a new line if there is some already.
    void appendSummaryHeading(const QString& markup) { appendMarkup(summaryHeading, markup); }
    void appendSummaryFooter(const QString& markup) { appendMarkup(summaryFooter, markup); }
    void appendSummaryEntry(const SummaryEntry& entry) { summaryEntries.append(entry); }
    bool hasSummaryEntry(const QString& id) const { return summaryEntries.contains(id); }
    bool hasSummaryEntries() const { return !summaryEntries.isEmpty(); }

    /// The subsections in display order, each with its entries in display order.
    QList<Subsection> subsections() const;
    void setSubsections(const QList<Subsection>& list);
    void appendSubsection(const Subsection& subsection);
    /// Merges a later record into the first one of its id; false if there is none.
    bool mergeSubsection(const Subsection& later);
    /// Puts a later record in the place of the first one of its id; false if there is none.
    bool replaceSubsection(const Subsection& later);
    bool hasSubsection(const QString& id) const { return subsectionRecords.contains(id); }
    /// The first subsection of this id, or a default record.
    Subsection subsection(const QString& id) const { return subsectionRecords.value(id); }
    /// How many advice strings all subsections accept together.
    qint64 maxAdviceStrings() const { return adviceStringsInAll; }
    /// The first metric that is broken down by a subsection which isn't there, or null.
    const ReportMetric* findMissingBreakdown();

    /// Takes away the metrics, the summary, the subsections and the merged documents.
    void clearContent();

    /// Notes that a partial document of this name was merged.
    void addPartialReport(const QString& name, const QUrl& url) { mergedReports[name] = url; }
    const QMap<QString, QUrl>& partialReports() const { return mergedReports; }
    /// One line for the document and one for each merged one: name and address.
    QString describeSources(int indent) const;

    /// Finds a metric whose place in the nested values the new id would need as well.
    ///
    /// @param error takes a message if an id has an empty part, which isn't looked at with null
    /// @return the id of the first such metric; empty for none
    QString findMetricIdCollision(const QString& id, QString* error) const;

private:
    static void appendMarkup(QString& text, const QString& markup);
    template <typename Change>
    bool changeSubsection(const QString& id, const Change& change);

    ReportIdScheme idRules;
    QString reportName;
    QString logoImage;
    QString logoTarget;
    QUrl address;
    RecordList<ReportMetric> metricRecords;
    MetricIdTree metricIdTree;
    BreakdownIndex breakdowns;
    QString summaryHeading;
    QString summaryFooter;
    RecordList<SummaryEntry> summaryEntries;
    RecordList<Subsection> subsectionRecords;
    qint64 adviceStringsInAll = 0;
    QMap<QString, QUrl> mergedReports;
};

} // namespace vantrel::report
