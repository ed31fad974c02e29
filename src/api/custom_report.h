#pragma once

#include "api/c_interface.h"
#include "api/error_text.h"
#include "definition/report_definition.h"
#include "metrics/metric_store.h"
#include "render/output_kind.h"

#include <QMap>
#include <QString>
#include <QVariant>

namespace vantrel {

/// What setMetricValue() does with an id that isn't declared.
enum UnknownMetricPolicy { DeclareUnknown = 0, RejectUnknown = 1 };

/// The object behind the exported handle: a definition, the values of one run, and the text of the
/// first failure. Operations that return an int return a code of the public header.
class CustomReport : public report::ReportDefinition {
public:
    /// Loads the definition and declares its metrics. A failure shows in the error text only.
    explicit CustomReport(const char* xmlLayout);
    /// Takes a definition that is loaded already.
    explicit CustomReport(const report::ReportDefinition& definition);

    /// @name The latch
    /// @{
    bool hasError() const { return errorText.isSet(); }
    const char* errorMessage() const { return errorText.get(); }
    /// Writes the error text as printf does.
    void setError(const char* format, ...) __attribute__((format(printf, 2, 3)));
    /// Takes a text of unknown content as the format, so that "%" in it is read as a conversion.
    void setErrorFromFormat(const QString& format);
    /// Records the exception that is being handled. To be called from a catch block.
    int handleException(const char* context);
    /// @}

    /// Whether a text of the caller's can be taken: UTF-8 to its end, and not longer than Qt's
    /// strings can be. A null pointer counts as an empty text.
    /// @param what what it is, for the message
    int checkText(const char* text, const char* what);
    /// The second half of that alone.
    int checkLength(const char* text, const char* what);

    /// @name Values
    /// @{
    QVariant metricValue(const QString& id) const { return metrics.value(id); }
    /// Sets a value under an id as callers spell it.
    int setValueFromCaller(const char* metricId, const QVariant& value);
    int setStringFromCaller(const char* metricId, const char* value);
    /// Sets a value under its full key.
    int setMetricValue(const QString& id, const QVariant& value, UnknownMetricPolicy policy);
    /// @}

    /// @name Dominant metric
    /// @{
    int setDominantMetricFromCaller(const char* metricId);
    int setDominantMetric(const QString& id);
    /// Clears the secondary bound if @p id is empty.
    int setSecondaryBound(const QString& id);
    /// The summary's metric with the greatest value; empty, with the error set, if one has none.
    QString computeDominantMetric();
    /// @}

    /// @name Advice
    /// @{
    int setDominantMetricAdvice(const char* advice);
    int setSummaryAdviceFromCaller(const char* entryId, const char* advice);
    int setSectionAdviceFromCaller(const char* sectionId, const char* advice);
    int setSummaryEntryAdvice(const QString& entryId, const QString& advice);
    /// @p number counts from 1.
    int setSubsectionAdvice(const QString& id, int number, const QString& advice);
    /// Fills all slots of the subsection, with empty texts where the list is shorter.
    int setSubsectionAdvices(const QString& id, const QStringList& advices);
    /// How many advice texts the subsection takes; -1, with the error set, if there is none.
    int adviceSlotCount(const QString& id);
    /// @}

    /// @name Output
    /// @{
    int writeHtml(char** output);
    /// @p output receives a malloc buffer, or null after a failure.
    int generateAndWrite(char** output, ReportOutputKind kind);
    int generateReport(QByteArray* bytes, ReportOutputKind kind);
    /// @}

    /// @name Notices
    /// Texts for the reader of a report that are no failures.
    /// @{
    void addNotice(const QString& key, const QString& text) { notices.insert(key, text); }
    bool hasNotices() const { return !notices.isEmpty(); }
    /// All notices in the order of their keys, each on a line of its own.
    QString noticeText() const;
    /// @}

private:
    bool loadDefinition(const char* xmlLayout);
    int setUpMetrics();
    void storeIdentity();
    int setDefaults();
    int checkAdvice(const char* advice);
    int setBound(const QString& key, const QString& id);
    int checkDefinitionMetrics();
    int completeDominantMetric();
    int checkMissingValues();

    MetricStore metrics;
    ErrorText errorText;
    QMap<QString, QString> notices;
};

} // namespace vantrel

/// The exported handle.
struct vantrel_handle final : vantrel::CustomReport {
    using vantrel::CustomReport::CustomReport;
};
