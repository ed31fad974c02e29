#pragma once

#include <QString>
#include <QUrl>

namespace vantrel::report {

constexpr char errorFrame[] = "Error in %1 at line %2 column %3: %4";
constexpr char warningFrame[] = "Warning in %1 at line %2 column %3: %4";

/// A message with the place in a document that it is about.
QString framedMessage(const char* frame, const QUrl& url, qint64 line, qint64 column,
                      const QString& text);

} // namespace vantrel::report
