#include "definition/schema/text_limits.h"

#include "definition/framed_message.h"
#include "host/error_message.h"

#include <QObject>

#include <cstring>

namespace vantrel::report {

namespace {

/// Walks over the tags of a text.
class TagWalk {
public:
    explicit TagWalk(const QByteArray& xml) : at(xml.constData()), end(at + xml.size()) {}

    /// Goes to the end of the next tag and counts the attributes that it can have: the "=" outside
    /// of quotes, and what declarations before it may add. False at the end of the text.
    bool next()
    {
        if (!skipTo('<'))
            return false;
        count = declared;
        innermost = depth;
        if (skipPast("<!--", "-->") || skipPast("<![CDATA[", "]]>") || skipPast("<?", "?>"))
            return at != end;
        if (end - at > 1 && at[1] == '!')
            return skipDeclaration();
        const bool closes = end - at > 1 && at[1] == '/';
        for (; at != end && *at != '>'; ++at) {
            if (*at == '=')
                ++count;
            else if ((*at == '"' || *at == '\'') && !skipTo(*at++))
                return true;
        }
        if (closes)
            --depth;
        else
            innermost = depth + 1;
        if (!closes && at[-1] != '/')
            ++depth;
        return true;
    }

    int attributes() const { return count; }
    /// How deep the tag's element is nested; the root's level is 1.
    int level() const { return innermost; }

    const char* position() const { return at; }

private:
    /// A document type's own declarations are tags of their own. Others can bring attributes as
    /// defaults and inside of entities, and the XML reader compares each declared attribute with
    /// all others, so each "=", each quote and each "#" of them counts.
    bool skipDeclaration()
    {
        const bool isDocumentType =
            QByteArray::fromRawData(at, int(end - at)).startsWith("<!DOCTYPE");
        char quote = '\0';
        for (; at != end && (quote || (*at != '>' && *at != '[')); ++at) {
            const bool isQuote = *at == '"' || *at == '\'';
            if (!isDocumentType && (isQuote || *at == '=' || *at == '#'))
                ++declared;
            if (isQuote && (!quote || quote == *at))
                quote = quote ? '\0' : *at;
        }
        count = declared;
        return at != end;
    }

    bool skipTo(char c)
    {
        const void* found = at == end ? nullptr : std::memchr(at, c, std::size_t(end - at));
        at = found ? static_cast<const char*>(found) : end;
        return found != nullptr;
    }

    /// Whether such a stretch begins here. If so, goes to its end.
    bool skipPast(const char* opening, const char* closing)
    {
        const QByteArray rest = QByteArray::fromRawData(at, int(end - at));
        if (!rest.startsWith(opening))
            return false;
        const int found = rest.indexOf(closing, int(std::strlen(opening)));
        at = found < 0 ? end : at + found + std::strlen(closing) - 1;
        return true;
    }

    const char* at;
    const char* end;
    int declared = 0;
    int count = 0;
    int depth = 0;
    int innermost = 0;
};

/// Walks on as long as the tags are within the limit.
template <typename Within>
bool checkTags(const QByteArray& xml, const QUrl& url, QString* error, const QString& message,
               Within within)
{
    clearError(error);
    TagWalk walk(xml);
    while (walk.next()) {
        if (within(walk))
            continue;
        const QByteArray before =
            QByteArray::fromRawData(xml.constData(), int(walk.position() - xml.constData()));
        const int column = before.size() - (before.lastIndexOf('\n') + 1);
        return fail(error, framedMessage(errorFrame, url, before.count('\n') + 1, column, message));
    }
    return true;
}

} // namespace

bool checkTextLimits(const QByteArray& xml, const QUrl& url, QString* error)
{
    return checkTags(xml, url, error,
                     QObject::tr("An element has more than %1 attributes").arg(maxAttributes),
                     [](const TagWalk& walk) { return walk.attributes() <= maxAttributes; });
}

bool checkNesting(const QByteArray& xml, const QUrl& url, QString* error)
{
    return checkTags(xml, url, error, tooDeepMessage(),
                     [](const TagWalk& walk) { return walk.level() <= maxNesting; });
}

QString tooDeepMessage()
{
    return QObject::tr("Elements are nested more than %1 levels deep").arg(maxNesting);
}

} // namespace vantrel::report
