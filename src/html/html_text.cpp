#include "html/html_text.h"

#include "html/html_entities.h"
#include "html/void_tags.h"

#include <QSet>
#include <QXmlStreamReader>

#include <cstring>

namespace vantrel {

namespace {

using TagSet = QSet<QString>;

const TagSet& blockTags()
{
    static const auto& tags = *new TagSet{"p",  "div", "h1", "h2", "h3",  "h4",
                                          "h5", "h6",  "ul", "ol", "pre", "blockquote"};
    return tags;
}

const TagSet& inlineTags()
{
    static const auto& tags = *new TagSet{
        "b",   "big",    "i",    "small", "tt",  "abbr", "acronym", "cite", "code", "dfn", "em",
        "kbd", "strong", "samp", "time",  "var", "br",   "q",       "span", "sub",  "sup", "label"};
    return tags;
}

/// "html" is the wrapper's.
bool isAllowed(const QString& name)
{
    return inlineTags().contains(name) || blockTags().contains(name) ||
           name == QLatin1String("html");
}

/// Behind a comment or the like that begins at @p at; -1 if none does.
int endOfNonTag(const QString& text, int at)
{
    static constexpr const char* marks[][2] = {{"<!--", "-->"}, {"<![CDATA[", "]]>"}, {"<?", "?>"}};
    for (const auto& [opening, closing] : marks) {
        if (text.midRef(at).startsWith(QLatin1String(opening))) {
            const int end = text.indexOf(QLatin1String(closing), at + int(std::strlen(opening)));
            return end < 0 ? text.size() : end + int(std::strlen(closing));
        }
    }
    return -1;
}

/// How many values in quotes the tag that begins at @p at has. They hold no "<", and a ">" outside
/// of them ends the tag.
int countValues(const QString& text, int at)
{
    int values = 0;
    QChar quote;
    for (int i = at + 1; i < text.size() && text.at(i) != u'<'; ++i) {
        const QChar c = text.at(i);
        if (c == quote) {
            quote = QChar();
        } else if (quote.isNull()) {
            if (c == u'>')
                break;
            if (c == u'"' || c == u'\'') {
                quote = c;
                ++values;
            }
        }
    }
    return values;
}

/// The XML reader compares each attribute of a tag with all others of it, so there must be an end
/// to them.
bool hasTooManyAttributes(const QString& text)
{
    constexpr int maxAttributes = 1000;
    for (int at = text.indexOf(u'<'); at >= 0;) {
        const int end = endOfNonTag(text, at);
        if (end < 0 && countValues(text, at) > maxAttributes)
            return true;
        at = text.indexOf(u'<', end < 0 ? at + 1 : end);
    }
    return false;
}

/// Hands the tokens inside the wrapper to @p visit, up to the wrapper's end tag or the first fault.
template <typename Visit>
void walk(const QString& text, Visit visit)
{
    HtmlEntityResolver resolver;
    QXmlStreamReader reader(normaliseHtml(text));
    reader.setEntityResolver(&resolver);
    while (!reader.atEnd() && reader.readNext() != QXmlStreamReader::StartElement) {
    }
    for (int depth = 1; depth > 0 && !reader.atEnd();) {
        const QXmlStreamReader::TokenType token = reader.readNext();
        if (token == QXmlStreamReader::StartElement)
            ++depth;
        else if (token == QXmlStreamReader::EndElement)
            --depth;
        visit(token, reader);
    }
}

bool isOnNewLine(const QString& text)
{
    return text.endsWith(u'\n');
}

void openElement(QString* out, const QString& name)
{
    if (name == QLatin1String("br") ||
        (blockTags().contains(name) && !out->isEmpty() && !isOnNewLine(*out)))
        *out += u'\n';
}

void closeElement(QString* out, const QString& name)
{
    if (name == QLatin1String("p"))
        *out += QLatin1String("\n\n");
    else if (blockTags().contains(name) && !isOnNewLine(*out))
        *out += u'\n';
}

/// Breaks lines at blanks; a word that is too long stays whole.
void wrap(QString* text, int width)
{
    int lineStart = 0;
    int blank = -1;
    for (int i = 0; i < text->size(); ++i) {
        const QChar c = text->at(i);
        if (c == u'\n' || c == u'\r') {
            lineStart = i + 1;
            blank = -1;
            continue;
        }
        if (c == u' ')
            blank = i;
        if (blank >= 0 && i - lineStart >= width) {
            (*text)[blank] = u'\n';
            lineStart = blank + 1;
            blank = -1;
        }
    }
}

} // namespace

bool validateHtml(const QString& text, HtmlOptions /*options*/)
{
    if (hasTooManyAttributes(text))
        return false;
    bool ok = true;
    walk(text, [&ok](QXmlStreamReader::TokenType token, const QXmlStreamReader& reader) {
        if (token == QXmlStreamReader::StartElement || token == QXmlStreamReader::EndElement)
            ok = isAllowed(reader.name().toString()) && ok;
    });
    return ok;
}

QString htmlToPlainText(const QString& html, HtmlOptions options)
{
    QString out;
    if (hasTooManyAttributes(html))
        return out;
    walk(html, [&](QXmlStreamReader::TokenType token, const QXmlStreamReader& reader) {
        switch (token) {
        case QXmlStreamReader::StartElement:
            openElement(&out, reader.name().toString());
            break;
        case QXmlStreamReader::EndElement:
            closeElement(&out, reader.name().toString());
            break;
        case QXmlStreamReader::Characters:
        case QXmlStreamReader::EntityReference:
            out += options.collapseWhitespace ? collapseWhitespace(reader.text().toString())
                                              : reader.text().toString();
            break;
        default:
            break;
        }
    });
    wrap(&out, options.lineWidth);
    return out;
}

QString normaliseHtml(const QString& text)
{
    return closeVoidTags(QLatin1String("<html>") + text + QLatin1String("</html>"));
}

QString collapseWhitespace(const QString& text)
{
    QString result;
    bool isInRun = false;
    for (const QChar c : text) {
        const bool isSpace = c == u' ' || c == u'\r' || c == u'\n' || c == u'\t';
        if (!isSpace)
            result += c;
        else if (!isInRun)
            result += u' ';
        isInRun = isSpace;
    }
    return result;
}

} // namespace vantrel
