#pragma once

#include <QByteArray>
#include <QString>
#include <QUrl>

namespace vantrel::report {

/// The XML readers compare each attribute of an element with all others of it, so there must be an
/// end to them.
constexpr int maxAttributes = 1000;

/// Validators recurse on the depth of a document.
constexpr int maxNesting = 200;

/// Refuses a text that would keep an XML reader busy for ever. Looks at the bytes alone and takes
/// time in proportion to them.
bool checkTextLimits(const QByteArray& xml, const QUrl& url, QString* error);

/// Refuses a text whose elements are nested more than maxNesting deep, in the same way.
bool checkNesting(const QByteArray& xml, const QUrl& url, QString* error);
QString tooDeepMessage();

} // namespace vantrel::report
