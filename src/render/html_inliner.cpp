#include "render/html_inliner.h"

#include "render/tag_scanner.h"

#include <QFile>
#include <QFileInfo>
#include <QTextCodec>

#include <optional>

namespace vantrel {

namespace {

QString cut(const QString& text, int begin, int end)
{
    return text.mid(begin, end - begin);
}

QString filePath(const QString& html, const TagAttribute& attribute, const QString& base)
{
    return base + u'/' + cut(html, attribute.value.begin + 1, attribute.value.end - 1);
}

std::optional<QByteArray> readFile(const QString& path)
{
    QFile file(path);
    if (!file.exists() || !file.open(QIODevice::ReadOnly))
        return std::nullopt;
    return file.readAll();
}

std::optional<QString> readText(const QString& path)
{
    const std::optional<QByteArray> bytes = readFile(path);
    if (!bytes)
        return std::nullopt;
    return QTextCodec::codecForUtfText(*bytes, QTextCodec::codecForLocale())->toUnicode(*bytes);
}

/// Of several attributes of one name the last counts.
const TagAttribute* lastAttribute(const QString& html, const StartTag& tag, const char* name)
{
    for (auto it = tag.attributes.rbegin(); it != tag.attributes.rend(); ++it) {
        if (isWord(html, it->name, name))
            return &*it;
    }
    return nullptr;
}

/// An element of the kind sought.
struct Element {
    int end;                     ///< behind it
    std::optional<QString> text; ///< takes its place, if there is one
};

/// @p readElement gives the element of a start tag, or nothing if the tag is of no use.
template <typename ReadElement>
QString replaceElements(const QString& html, const char* name, ReadElement readElement)
{
    QString result;
    int copied = 0;
    TagScanner scanner(html, name);
    for (StartTag tag; scanner.next(&tag);) {
        const std::optional<Element> element = readElement(tag);
        if (!element) {
            scanner.reject(tag);
            continue;
        }
        scanner.accept(element->end);
        if (!element->text)
            continue;
        result += html.midRef(copied, tag.begin - copied);
        result += *element->text;
        copied = element->end;
    }
    return copied == 0 ? html : result += html.midRef(copied);
}

/// Behind the end tag, if it follows with nothing but white space before it.
std::optional<int> emptyScriptEnd(const QString& html, int at)
{
    while (at < html.size() && html.at(at).isSpace())
        ++at;
    const TextRange endTag{at, at + 9};
    if (endTag.end > html.size() || !isWord(html, endTag, "</script>"))
        return std::nullopt;
    return endTag.end;
}

bool isStylesheetRelation(const QString& html, const TagAttribute& attribute)
{
    return isWord(html, attribute.name, "rel") &&
           isWord(html, {attribute.value.begin + 1, attribute.value.end - 1}, "stylesheet");
}

bool isReference(const QString& html, const TagAttribute& attribute)
{
    return isWord(html, attribute.name, "href");
}

struct StylesheetPair {
    const TagAttribute* first;
    const TagAttribute* second;
};

/// The two attributes that make a link to a style sheet, in the order in which they stand. Of
/// several pairs the last first one counts, and then the last second one.
std::optional<StylesheetPair> findStylesheetPair(const QString& html, const StartTag& tag)
{
    const TagAttribute* relation = nullptr;
    const TagAttribute* reference = nullptr;
    for (auto it = tag.attributes.rbegin(); it != tag.attributes.rend(); ++it) {
        const bool isRelation = isStylesheetRelation(html, *it);
        if (!isRelation && !isReference(html, *it))
            continue;
        if (const TagAttribute* second = isRelation ? reference : relation)
            return StylesheetPair{&*it, second};
        const TagAttribute*& known = isRelation ? relation : reference;
        if (!known)
            known = &*it;
    }
    return std::nullopt;
}

QString withoutTrailingSlash(QString attributes)
{
    if (attributes.endsWith(u'/'))
        attributes.chop(1);
    return attributes;
}

std::optional<QString> imageMimeType(const QString& path)
{
    static constexpr const char* types[][2] = {
        {"png", "image/png"}, {"jpg", "image/jpeg"}, {"gif", "image/gif"}};
    const QString suffix = QFileInfo(path).suffix();
    for (const auto& [known, type] : types) {
        if (suffix == QLatin1String(known))
            return QString::fromLatin1(type);
    }
    return std::nullopt;
}

/// The image in the place of a path.
std::optional<QString> imageDataUri(const QString& path)
{
    const std::optional<QString> type = imageMimeType(path);
    const std::optional<QByteArray> bytes = type ? readFile(path) : std::nullopt;
    if (!bytes)
        return std::nullopt;
    return QLatin1String("data:") + *type + QLatin1String(";base64,") +
           QString::fromLatin1(bytes->toBase64());
}

} // namespace

QString inlineScripts(const QString& html, const QString& base)
{
    return replaceElements(html, "script", [&](const StartTag& tag) -> std::optional<Element> {
        const TagAttribute* source = lastAttribute(html, tag, "src");
        const std::optional<int> end = emptyScriptEnd(html, tag.end());
        if (!source || !end)
            return std::nullopt;
        const std::optional<QString> script = readText(filePath(html, *source, base));
        if (!script)
            return Element{*end, std::nullopt};
        return Element{*end, QLatin1String("<script") +
                                 cut(html, tag.attributeText.begin, source->begin()) +
                                 cut(html, source->end(), tag.attributeText.end) + u'>' + *script +
                                 QLatin1String("</script>")};
    });
}

QString inlineStylesheets(const QString& html, const QString& base)
{
    return replaceElements(html, "link", [&](const StartTag& tag) -> std::optional<Element> {
        const std::optional<StylesheetPair> pair = findStylesheetPair(html, tag);
        if (!pair)
            return std::nullopt;
        const auto [first, second] = *pair;
        const TagAttribute& reference = isReference(html, *first) ? *first : *second;
        const std::optional<QString> style = readText(filePath(html, reference, base));
        if (!style)
            return Element{tag.end(), std::nullopt};
        const QString attributes = cut(html, tag.attributeText.begin, first->begin()) +
                                   cut(html, first->end(), second->begin()) +
                                   cut(html, second->end(), tag.attributeText.end);
        return Element{tag.end(), QLatin1String("<style") + withoutTrailingSlash(attributes) +
                                      u'>' + *style + QLatin1String("</style>")};
    });
}

QString inlineImages(const QString& html, const QString& base)
{
    return replaceElements(html, "img", [&](const StartTag& tag) -> std::optional<Element> {
        const TagAttribute* source = lastAttribute(html, tag, "src");
        if (!source)
            return std::nullopt;
        const std::optional<QString> image = imageDataUri(filePath(html, *source, base));
        if (!image)
            return Element{tag.end(), std::nullopt};
        return Element{tag.end(), QLatin1String("<img") +
                                      cut(html, tag.attributeText.begin, source->begin()) +
                                      QLatin1String(" src=\"") + *image + u'"' +
                                      cut(html, source->end(), tag.attributeText.end) + u'>'};
    });
}

QString inlineHtmlResources(const QString& html, const QString& base)
{
    return inlineImages(inlineStylesheets(inlineScripts(html, base), base), base);
}

} // namespace vantrel
