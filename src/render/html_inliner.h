#pragma once

#include <QString>

/// Puts the files that a page refers to into its text. A file's path is the base, "/" and the value
/// of the attribute; what can't be read stays as it stands, remote addresses among it.
namespace vantrel {

/// All three, one after the other.
QString inlineHtmlResources(const QString& html, const QString& base);

/// Empty script elements with a quoted src.
QString inlineScripts(const QString& html, const QString& base);
/// link elements with rel="stylesheet" and a quoted href, which become style elements.
QString inlineStylesheets(const QString& html, const QString& base);
/// img elements whose quoted src ends in .png, .jpg or .gif.
QString inlineImages(const QString& html, const QString& base);

} // namespace vantrel
