#include "html/void_tags.h"

#include <QVector>

#include <algorithm>

namespace vantrel {

namespace {

constexpr const char* voidTags[] = {"area", "base",  "br",     "col",    "embed",
                                    "hr",   "img",   "input",  "keygen", "link",
                                    "meta", "param", "source", "track",  "wbr"};

/// For each place in a text, where the longest tag ends that has come that far: behind a ">" that
/// is reached through quoted values, which hold no "<", and through characters other than ">" and
/// "/". A quote can also be one of these characters. -1 for none.
///
/// Worked out from the end, so that many tags that don't end cost no more than one.
QVector<int> tagEnds(const QString& text)
{
    QVector<int> outside(text.size() + 1, -1);
    int inDouble = -1; // where it ends if this place is inside of such a value
    int inSingle = -1;
    for (int i = text.size() - 1; i >= 0; --i) {
        const QChar c = text.at(i);
        const int next = outside.at(i + 1);
        if (c == u'>')
            outside[i] = i + 1;
        else if (c == u'"')
            outside[i] = std::max(next, inDouble);
        else if (c == u'\'')
            outside[i] = std::max(next, inSingle);
        else if (c != u'/')
            outside[i] = next;
        if (c == u'<')
            inDouble = inSingle = -1;
        else if (c == u'"')
            inDouble = next;
        else if (c == u'\'')
            inSingle = next;
    }
    return outside;
}

QString closeTags(const QString& html, const QString& opening)
{
    int at = html.indexOf(opening);
    if (at < 0)
        return html;
    const QVector<int> ends = tagEnds(html);
    QString result;
    int copied = 0;
    while (at >= 0) {
        const int end = ends.at(at + opening.size());
        if (end >= 0) {
            result += html.midRef(copied, end - 1 - copied);
            result += QLatin1String("/>");
            copied = end;
        }
        at = html.indexOf(opening, end >= 0 ? end : at + 1);
    }
    return result += html.midRef(copied);
}

} // namespace

QString closeVoidTags(const QString& html)
{
    QString text = html;
    for (const char* tag : voidTags)
        text = closeTags(text, u'<' + QLatin1String(tag));
    return text;
}

} // namespace vantrel
