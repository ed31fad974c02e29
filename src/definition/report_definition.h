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

    const ReportIdScheme& idScheme() const { return m_scheme; }
    void setIdScheme(const ReportIdScheme& scheme) { m_scheme = scheme; }
    QString name() const { return m_name; }
    void setName(const QString& name) { m_name = name; }
    QUrl url() const { return m_url; }
    void setUrl(const QUrl& url) { m_url = url; }
    QString logo() const { return m_logo; }
    void setLogo(const QString& logo) { m_logo = logo; }
    QString logoLink() const { return m_logoLink; }
    void setLogoLink(const QString& link) { m_logoLink = link; }

    /// The metrics in document order.
    const QList<ReportMetric>& metrics() const { return m_metrics.all(); }
    void setMetrics(const QList<ReportMetric>& list);
    void appendMetric(const ReportMetric& metric);
    /// Merges a later record into the first one of its id; false if there is none.
    bool mergeMetric(const ReportMetric& later);
    QSet<QString> metricIds() const;
    bool hasMetric(const QString& id) const { return m_metrics.contains(id); }
    /// The first metric of this id, or a default record.
    ReportMetric metric(const QString& id) const { return m_metrics.value(id); }

    /// The summary with its entries in display order.
    Summary summary() const;
    void setSummary(const Summary& summary);
    /// Adds markup to the heading or the footer, on a new line if there is some already.
    void appendSummaryHeading(const QString& markup) { appendMarkup(m_summaryHeading, markup); }
    void appendSummaryFooter(const QString& markup) { appendMarkup(m_summaryFooter, markup); }
    void appendSummaryEntry(const SummaryEntry& entry) { m_summaryEntries.append(entry); }
    bool hasSummaryEntry(const QString& id) const { return m_summaryEntries.contains(id); }
    bool hasSummaryEntries() const { return !m_summaryEntries.isEmpty(); }

    /// The subsections in display order, each with its entries in display order.
    QList<Subsection> subsections() const;
    void setSubsections(const QList<Subsection>& list);
    void appendSubsection(const Subsection& subsection);
    /// Merges a later record into the first one of its id; false if there is none.
    bool mergeSubsection(const Subsection& later);
    /// Puts a later record in the place of the first one of its id; false if there is none.
    bool replaceSubsection(const Subsection& later);
    bool hasSubsection(const QString& id) const { return m_subsections.contains(id); }
    /// The first subsection of this id, or a default record.
    Subsection subsection(const QString& id) const { return m_subsections.value(id); }
    /// How many advice strings all subsections accept together.
    qint64 maxAdviceStrings() const { return m_maxAdviceStrings; }
    /// The first metric that is broken down by a subsection which isn't there, or null.
    const ReportMetric* findMissingBreakdown();

    /// Takes away the metrics, the summary, the subsections and the merged documents.
    void clearContent();

    /// Notes that a partial document of this name was merged.
    void addPartialReport(const QString& name, const QUrl& url) { m_partialReports[name] = url; }
    const QMap<QString, QUrl>& partialReports() const { return m_partialReports; }
    /// One line for the document and one for each merged one: name and address.
    QString describeSources(int indent) const;

    /// Finds a metric whose place in the nested values the new id would need as well.
    ///
    /// @param error may be null; takes a message if an id has an empty part
    /// @return the id of the first such metric; empty for none
    QString findMetricIdCollision(const QString& id, QString* error) const;

private:
    static void appendMarkup(QString& text, const QString& markup);
    template <typename Change>
    bool changeSubsection(const QString& id, const Change& change);

    ReportIdScheme m_scheme;
    QString m_name;
    QString m_logo;
    QString m_logoLink;
    QUrl m_url;
    RecordList<ReportMetric> m_metrics;
    MetricIdTree m_metricIdTree;
    BreakdownIndex m_breakdowns;
    QString m_summaryHeading;
    QString m_summaryFooter;
    RecordList<SummaryEntry> m_summaryEntries;
    RecordList<Subsection> m_subsections;
    qint64 m_maxAdviceStrings = 0;
    QMap<QString, QUrl> m_partialReports;
};

} // namespace vantrel::report
