#include "definition/text_limits.h"

#include "definition/xml_source.h"

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
    bool next(int* attributes)
    {
        if (!skipTo('<'))
            return false;
        *attributes = declared;
        if (skipPast("<!--", "-->") || skipPast("<![CDATA[", "]]>") || skipPast("<?", "?>"))
            return at != end;
        if (end - at > 1 && at[1] == '!')
            return skipDeclaration(attributes);
        for (; at != end && *at != '>'; ++at) {
            if (*at == '=')
                ++*attributes;
            else if ((*at == '"' || *at == '\'') && !skipTo(*at++))
                return true;
        }
        return true;
    }

    const char* position() const { return at; }

private:
    /// A document type's own declarations are tags of their own. Others can bring attributes as
    /// defaults and inside of entities, so each "=" and each quote of them counts.
    bool skipDeclaration(int* attributes)
    {
        const bool isDocumentType =
            QByteArray::fromRawData(at, int(end - at)).startsWith("<!DOCTYPE");
        char quote = '\0';
        for (; at != end && (quote || (*at != '>' && *at != '[')); ++at) {
            const bool isQuote = *at == '"' || *at == '\'';
            if (!isDocumentType && (isQuote || *at == '='))
                ++declared;
            if (isQuote && (!quote || quote == *at))
                quote = quote ? '\0' : *at;
        }
        *attributes = declared;
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
};

} // namespace

bool checkTextLimits(const QByteArray& xml, const QUrl& url, QString* error)
{
    TagWalk walk(xml);
    for (int attributes = 0; walk.next(&attributes);) {
        if (attributes <= mostAttributes)
            continue;
        if (error) {
            const QByteArray before =
                QByteArray::fromRawData(xml.constData(), int(walk.position() - xml.constData()));
            *error = framedMessage(
                "Error in %1 at line %2 column %3: %4", url, before.count('\n') + 1,
                before.size() - (before.lastIndexOf('\n') + 1),
                QObject::tr("An element has more than %1 attributes").arg(mostAttributes));
        }
        return false;
    }
    return true;
}

} // namespace vantrel::report
