#pragma once

#include <QList>
#include <QString>

/// What is told about the input, on the standard error output, in the form that editors and CI
/// systems read.
namespace vantrel::tool {

enum class Severity { Warning, Error };

struct Finding {
    QString file;
    int line = 0;   ///< from 1; 0 for the file as a whole
    int column = 0; ///< from 1; 0 for the line as a whole
    Severity severity = Severity::Error;
    QString text;
    QString suggestion; ///< a name that may have been meant; empty for none
};

/// An error without a place in its file.
Finding fileError(const QString& file, const QString& text);

/// Takes the message of a refused definition apart: several paragraphs can each tell a place.
QList<Finding> findingsFromMessage(const QString& file, const QString& message);

/// "FILE:LINE:COLUMN: error: text (did you mean 'suggestion'?)", without what isn't known.
QString textOf(const Finding& finding);

/// Prints them, in colour on a terminal unless NO_COLOR is set.
void printFindings(const QList<Finding>& findings);

} // namespace vantrel::tool
