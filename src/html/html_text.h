#pragma once

#include <QString>

/// Fragments of HTML as they are accepted from callers: a few formatting tags, read as XML.
namespace vantrel {

struct HtmlOptions {
    static constexpr int noWrapping = 0x7fffffff;

    int lineWidth = 80; ///< column at which plain text is wrapped
    bool collapseWhitespace = true;
};

/// Whether a fragment has allowed tags only. It is a test of names: text that isn't well-formed
/// passes, and what stands behind such a fault isn't looked at. A tag of more than 1000 attributes
/// is refused.
bool validateHtml(const QString& text, HtmlOptions options = {});

/// The text of a fragment with its lines wrapped; paragraphs and blocks begin on lines of their
/// own.
QString htmlToPlainText(const QString& html, HtmlOptions options = {});

/// Makes a fragment readable as XML: in one root element, with the tags closed that have no
/// content.
QString normaliseHtml(const QString& text);

/// Makes each run of white space one blank.
QString collapseWhitespace(const QString& text);

} // namespace vantrel
