#include "render/report_engine.h"

#include "host/error_message.h"
#include "render/page_shell.h"
#include "render/resources.h"
#include "render/script_interpreter.h"

#include <QJsonDocument>
#include <QObject>

#include <algorithm>

namespace corvane {

using vantrel::clearError;
using vantrel::fail;

namespace {

QString unicodeEscape(QChar c)
{
    return QStringLiteral("\\u%1").arg(c.unicode(), 4, 16, QLatin1Char('0'));
}

/// How a character that is no surrogate stands in a string of a script in a page.
QString inScriptString(QChar c)
{
    static constexpr char escaped[] = "\"\\\b\f\n\r\t";
    static constexpr char letters[] = "\"\\bfnrt";
    for (int i = 0; escaped[i]; ++i) {
        if (c == QLatin1Char(escaped[i]))
            return QString(u'\\') + QLatin1Char(letters[i]);
    }
    for (const char16_t each : u"<>&\u2028\u2029") {
        if (c == QChar(each))
            return unicodeEscape(c);
    }
    return c < u' ' ? unicodeEscape(c) : QString(c);
}

/// A text as a string of a script in a page: nothing in it can be taken for markup.
QString scriptString(const QString& text)
{
    QString result(u'"');
    for (int i = 0; i < text.size(); ++i) {
        const QChar c = text.at(i);
        if (c.isHighSurrogate() && i + 1 < text.size() && text.at(i + 1).isLowSurrogate())
            result += text.midRef(i++, 2);
        else
            result += c.isSurrogate() ? unicodeEscape(c) : inScriptString(c);
    }
    return result += u'"';
}

bool readText(QFile& file, QString* text, QString* error)
{
    clearError(error);
    if (!file.open(QIODevice::ReadOnly)) {
        return fail(
            error,
            QObject::tr("Unable to read file %1: %2").arg(file.fileName(), file.errorString()));
    }
    *text = QString::fromUtf8(file.readAll());
    file.close();
    return true;
}

bool failInScript(QString* error, const QString& message)
{
    return fail(error, message.isEmpty() ? QObject::tr("unknown script error") : message);
}

} // namespace

QString ReportFormat::scriptName() const
{
    switch (value) {
    case Html:
        return QStringLiteral("html");
    case Text:
        return QStringLiteral("text");
    case Unknown:
        break;
    }
    return QString();
}

QString ReportFormat::mimeType() const
{
    return value == Html ? QStringLiteral("text/html") : QStringLiteral("text/plain");
}

ReportEngine::ReportEngine() = default;
ReportEngine::~ReportEngine() = default;

bool ReportEngine::loadPartialFromFile(const QString& name, QFile& file, ReportFormat format,
                                       QString* error)
{
    Source source{name, QString(), format};
    return readText(file, &source.text, error) &&
           addSource(source, vantrel::isResourcePath(file.fileName()), error);
}

bool ReportEngine::loadJavaScriptFromFile(QFile& file, QString* error)
{
    Source source{std::nullopt, QString(), ReportFormat::Unknown};
    return readText(file, &source.text, error) &&
           addSource(source, vantrel::isResourcePath(file.fileName()), error);
}

void ReportEngine::loadAdditionalHeadContent(const QString& content)
{
    headContent.append(content);
}

bool ReportEngine::addSource(const Source& source, bool isTrusted, QString* error)
{
    sources.append(source);
    if (isTrusted && !interpreter)
        return true;
    if (runPendingSources(error))
        return true;
    sources.removeLast();
    sourcesRun = sources.size();
    return false;
}

bool ReportEngine::runPendingSources(QString* error)
{
    QString message;
    if (!interpreter)
        interpreter = ScriptInterpreter::start(&message);
    if (!interpreter)
        return fail(error, message);
    for (; sourcesRun < sources.size(); ++sourcesRun) {
        if (!runSource(sources.at(sourcesRun), error))
            return false;
    }
    return true;
}

bool ReportEngine::runSource(const Source& source, QString* error)
{
    QString message;
    const bool ok = source.isScript()
                        ? interpreter->run(source.text, &message)
                        : interpreter->registerPartial(*source.name, source.format.scriptName(),
                                                       source.text, &message);
    return ok || failInScript(error, message);
}

QString ReportEngine::scriptElements() const
{
    QString elements;
    for (const char* file : ScriptInterpreter::scriptFiles)
        elements += pageShell().scriptFile.filled({{"file", QLatin1String(file)}});
    for (const Source& source : sources) {
        if (source.isScript())
            elements += pageShell().script.filled({{"text", source.text}});
    }
    return elements;
}

QString ReportEngine::templateElements() const
{
    QString elements;
    for (const Source& source : sources) {
        if (!source.isScript()) {
            elements += pageShell().templateElement.filled({{"type", source.format.mimeType()},
                                                            {"name", source.name->toHtmlEscaped()},
                                                            {"text", source.text}});
        }
    }
    return elements;
}

DynamicPage ReportEngine::dynamicPage(const QString& templateName) const
{
    return {pageShell().beforeData.filled(
                {{"headContent", headContent.join(QString())}, {"scripts", scriptElements()}}),
            pageShell().afterData.filled(
                {{"templates", templateElements()}, {"templateName", scriptString(templateName)}})};
}

QString ReportEngine::renderDynamicHtml(const QJsonObject& data, const QString& templateName,
                                        QString* error)
{
    clearError(error);
    const bool isKnown =
        std::any_of(sources.begin(), sources.end(),
                    [&templateName](const Source& source) { return source.name == templateName; });
    if (!isKnown) {
        fail(error, QObject::tr("Invalid template \"%1\" for html").arg(templateName));
        return QString();
    }
    const DynamicPage page = dynamicPage(templateName);
    return page.beforeData + QString::fromUtf8(pageJson(data)) + page.afterData;
}

QString ReportEngine::renderStatic(const QJsonObject& data, const QString& templateName,
                                   ReportFormat format, QString* error)
{
    clearError(error);
    if (!runPendingSources(error))
        return QString();
    QString message;
    const QString json = QString::fromUtf8(QJsonDocument(data).toJson(QJsonDocument::Compact));
    const std::optional<QString> text =
        interpreter->render(templateName, format.scriptName(), json, &message);
    if (!text)
        failInScript(error, message);
    return text.value_or(QString());
}

QByteArray pageJson(const QJsonObject& data)
{
    const QByteArray json = QJsonDocument(data).toJson(QJsonDocument::Compact);
    QByteArray text;
    text.reserve(json.size() + json.size() / 8);
    int copied = 0;
    const auto replace = [&](int at, int length, const char* escape) {
        text.append(json.constData() + copied, at - copied).append(escape);
        copied = at + length;
    };
    for (int i = 0; i < json.size(); ++i) {
        switch (json.at(i)) {
        case '<':
            replace(i, 1, "\\u003c");
            break;
        case '>':
            replace(i, 1, "\\u003e");
            break;
        case '&':
            replace(i, 1, "\\u0026");
            break;
        case '\xe2': // U+2028 and U+2029 end a line in older scripts
            if (json.mid(i, 3) == "\xe2\x80\xa8")
                replace(i, 3, "\\u2028");
            else if (json.mid(i, 3) == "\xe2\x80\xa9")
                replace(i, 3, "\\u2029");
            break;
        default:
            break;
        }
    }
    return text.append(json.constData() + copied, json.size() - copied);
}

} // namespace corvane
