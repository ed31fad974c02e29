#include "render/tag_scanner.h"

#include <cstring>

namespace vantrel {

namespace {

bool isQuote(QChar c)
{
    return c == u'"' || c == u'\'';
}

/// The name that stands in front of "=" and an opening quote, if white space precedes it; nothing
/// before @p from counts. An empty range if there is none.
TextRange nameBefore(const QString& text, int quote, int from)
{
    const int end = quote - 1;
    if (end <= from || text.at(end) != u'=')
        return {};
    int begin = end;
    while (begin > from && !text.at(begin - 1).isSpace())
        --begin;
    return begin > from ? TextRange{begin, end} : TextRange{};
}

} // namespace

bool isWord(const QString& text, TextRange range, const char* word)
{
    if (range.end - range.begin != int(std::strlen(word)))
        return false;
    for (int i = range.begin; i < range.end; ++i, ++word) {
        if (text.at(i).toLower() != QLatin1Char(*word))
            return false;
    }
    return true;
}

TagScanner::TagScanner(const QString& html, const char* tagName)
    : text(html), name(QLatin1String(tagName))
{}

bool TagScanner::next(StartTag* tag)
{
    for (;;) {
        tag->begin = text.indexOf(u'<', position);
        if (tag->begin < 0)
            return false;
        position = tag->begin + 1;
        const int nameEnd = position + name.size();
        if (nameEnd > text.size() || (!seen.isEmpty() && seen.testBit(tag->begin)))
            continue;
        if (isWord(text, {position, nameEnd}, name.toLatin1().constData()) && scanTag(tag))
            return true;
    }
}

bool TagScanner::scanTag(StartTag* tag)
{
    const int begin = tag->begin + 1 + name.size();
    tag->attributes.clear();
    int plain = begin; // where the present stretch outside of quotes began
    for (int i = begin; i < text.size(); ++i) {
        const QChar c = text.at(i);
        if (c == u'>') {
            tag->attributeText = {begin, i};
            return true;
        }
        if (!seen.isEmpty() && seen.testBit(i))
            break;
        if (!isQuote(c))
            continue;
        const int close = text.indexOf(c, i + 1);
        if (close < 0)
            break;
        const TextRange attribute = nameBefore(text, i, plain);
        if (attribute.end > 0)
            tag->attributes.append({attribute, {i, close + 1}});
        plain = close + 1;
        i = close;
    }
    markSeen(tag->begin, text.size());
    return false;
}

void TagScanner::reject(const StartTag& tag)
{
    markSeen(tag.begin, tag.attributeText.end);
    position = tag.begin + 1;
}

/// Goes the way of scanTag() once more, up to where an earlier useless tag has led.
void TagScanner::markSeen(int begin, int end)
{
    if (seen.isEmpty())
        seen.resize(text.size());
    for (int i = begin; i < end && !seen.testBit(i); ++i) {
        seen.setBit(i);
        if (isQuote(text.at(i)))
            i = text.indexOf(text.at(i), i + 1);
        if (i < 0)
            return;
    }
}

} // namespace vantrel
