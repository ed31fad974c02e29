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

    /// Goes behind the next tag and counts its attributes, that is the "=" outside of quotes. False
    /// at the end of the text.
    bool next(int* attributes)
    {
        *attributes = 0;
        if (!skipTo('<'))
            return false;
        if (skipPast("<!--", "-->") || skipPast("<![CDATA[", "]]>") || skipPast("<?", "?>"))
            return at != end;
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
