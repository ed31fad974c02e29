#include "render/html_inliner.h"

#include "render/tag_scanner.h"

#include <QFile>
#include <QFileInfo>
#include <QTextCodec>

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

bool readText(const QString& path, QString* text)
{
    QFile file(path);
    if (!file.exists() || !file.open(QIODevice::ReadOnly))
        return false;
    const QByteArray bytes = file.readAll();
    *text = QTextCodec::codecForUtfText(bytes, QTextCodec::codecForLocale())->toUnicode(bytes);
    return true;
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

/// What takes the place of an element. A null text leaves the element as it stands.
struct Replacement {
    bool isElement = false; ///< whether the tag belongs to an element of the kind sought at all
    int end = 0;            ///< behind the element
    QString text;
};

template <typename MakeReplacement>
QString replaceElements(const QString& html, const char* name, MakeReplacement makeReplacement)
{
    QString result;
    int copied = 0;
    TagScanner scanner(html, name);
    for (StartTag tag; scanner.next(&tag);) {
        const Replacement replacement = makeReplacement(tag);
        if (!replacement.isElement) {
            scanner.reject(tag);
            continue;
        }
        scanner.accept(replacement.end);
        if (replacement.text.isNull())
            continue;
        result += html.midRef(copied, tag.begin - copied);
        result += replacement.text;
        copied = replacement.end;
    }
    return copied == 0 ? html : result += html.midRef(copied);
}

/// Behind the end tag that follows with nothing but white space before it, or -1.
int emptyScriptEnd(const QString& html, int at)
{
    while (at < html.size() && html.at(at).isSpace())
        ++at;
    const TextRange endTag{at, at + 9};
    return endTag.end <= html.size() && isWord(html, endTag, "</script>") ? endTag.end : -1;
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

/// The two attributes that make a link to a style sheet, in the order in which they stand. Of
/// several pairs the last first one counts, and then the last second one.
bool findStylesheetPair(const QString& html, const StartTag& tag, const TagAttribute** first,
                        const TagAttribute** second)
{
    const TagAttribute* relation = nullptr;
    const TagAttribute* reference = nullptr;
    for (auto it = tag.attributes.rbegin(); it != tag.attributes.rend(); ++it) {
        const bool isRelation = isStylesheetRelation(html, *it);
        if (!isRelation && !isReference(html, *it))
            continue;
        *second = isRelation ? reference : relation;
        if (*second) {
            *first = &*it;
            return true;
        }
        const TagAttribute*& known = isRelation ? relation : reference;
        if (!known)
            known = &*it;
    }
    return false;
}

QString withoutTrailingSlash(QString attributes)
{
    if (attributes.endsWith(u'/'))
        attributes.chop(1);
    return attributes;
}

QString imageMimeType(const QString& path)
{
    static constexpr const char* types[][2] = {
        {"png", "image/png"}, {"jpg", "image/jpeg"}, {"gif", "image/gif"}};
    const QString suffix = QFileInfo(path).suffix();
    for (const auto& [known, type] : types) {
        if (suffix == QLatin1String(known))
            return QString::fromLatin1(type);
    }
    return QString();
}

} // namespace

QString inlineScripts(const QString& html, const QString& base)
{
    return replaceElements(html, "script", [&](const StartTag& tag) {
        Replacement replacement;
        const TagAttribute* source = lastAttribute(html, tag, "src");
        replacement.end = emptyScriptEnd(html, tag.end());
        replacement.isElement = source && replacement.end >= 0;
        QString script;
        if (replacement.isElement && readText(filePath(html, *source, base), &script)) {
            replacement.text = QLatin1String("<script") +
                               cut(html, tag.attributeText.begin, source->begin()) +
                               cut(html, source->end(), tag.attributeText.end) + u'>' + script +
                               QLatin1String("</script>");
        }
        return replacement;
    });
}

QString inlineStylesheets(const QString& html, const QString& base)
{
    return replaceElements(html, "link", [&](const StartTag& tag) {
        Replacement replacement;
        const TagAttribute* first = nullptr;
        const TagAttribute* second = nullptr;
        replacement.end = tag.end();
        replacement.isElement = findStylesheetPair(html, tag, &first, &second);
        if (!replacement.isElement)
            return replacement;
        const TagAttribute& reference = isReference(html, *first) ? *first : *second;
        QString style;
        if (readText(filePath(html, reference, base), &style)) {
            const QString attributes = cut(html, tag.attributeText.begin, first->begin()) +
                                       cut(html, first->end(), second->begin()) +
                                       cut(html, second->end(), tag.attributeText.end);
            replacement.text = QLatin1String("<style") + withoutTrailingSlash(attributes) + u'>' +
                               style + QLatin1String("</style>");
        }
        return replacement;
    });
}

QString inlineImages(const QString& html, const QString& base)
{
    return replaceElements(html, "img", [&](const StartTag& tag) {
        Replacement replacement;
        const TagAttribute* source = lastAttribute(html, tag, "src");
        replacement.end = tag.end();
        replacement.isElement = source != nullptr;
        if (!source)
            return replacement;
        const QString path = filePath(html, *source, base);
        const QString type = imageMimeType(path);
        QFile file(path);
        if (!type.isEmpty() && file.exists() && file.open(QIODevice::ReadOnly)) {
            replacement.text = QLatin1String("<img") +
                               cut(html, tag.attributeText.begin, source->begin()) +
                               QLatin1String(" src=\"data:") + type + QLatin1String(";base64,") +
                               QString::fromLatin1(file.readAll().toBase64()) + u'"' +
                               cut(html, source->end(), tag.attributeText.end) + u'>';
        }
        return replacement;
    });
}

QString inlineHtmlResources(const QString& html, const QString& base)
{
    return inlineImages(inlineStylesheets(inlineScripts(html, base), base), base);
}

} // namespace vantrel
