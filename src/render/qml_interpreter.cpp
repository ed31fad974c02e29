// The interpreter is Qt's QJSEngine. Nothing else knows that.
#include "render/script_interpreter.h"

#include "render/resources.h"

#include <QJSEngine>

namespace corvane {

namespace {

QString resourceText(const QString& path)
{
    return QString::fromUtf8(vantrel::resourceBytes(path));
}

QString describe(const QJSValue& error)
{
    const QString message = error.property(QStringLiteral("message")).toString();
    return error.isObject() && !message.isEmpty() ? message : error.toString();
}

class QmlInterpreter : public ScriptInterpreter {
public:
    bool load(QString* message);
    bool run(const QString& script, QString* message) override;
    bool registerPartial(const QString& name, const QString& format, const QString& text,
                         QString* message) override;
    std::optional<QString> render(const QString& templateName, const QString& format,
                                  const QString& json, QString* message) override;

private:
    /// The text that a function gives, or none if it fails.
    std::optional<QString> call(const char* function, const QJSValueList& arguments,
                                QString* message);

    QJSEngine engine;
    QJSValue host; ///< the functions of the prelude
};

bool QmlInterpreter::load(QString* message)
{
    engine.installExtensions(QJSEngine::ConsoleExtension);
    host = engine.evaluate(resourceText(QStringLiteral(":/vantrel/interpreter/prelude.js")),
                           QStringLiteral("prelude.js"));
    if (host.isError()) {
        *message = describe(host);
        return false;
    }
    for (const char* file : scriptFiles) {
        if (!run(resourceText(vantrel::resourcePath(QLatin1String(file))), message))
            return false;
    }
    return true;
}

bool QmlInterpreter::run(const QString& script, QString* message)
{
    // What a script throws comes back as its result, and the prelude's stand-in for Error isn't an
    // error to the interpreter; so the last value of a script that runs to its end tells.
    const QString completed = QStringLiteral("script completed");
    const QJSValue result = engine.evaluate(script + QLatin1String("\n;'") + completed + u'\'');
    if (result.isString() && result.toString() == completed)
        return true;
    *message = describe(result);
    return false;
}

bool QmlInterpreter::registerPartial(const QString& name, const QString& format,
                                     const QString& text, QString* message)
{
    return call("registerPartial", {name, format, text}, message).has_value();
}

std::optional<QString> QmlInterpreter::render(const QString& templateName, const QString& format,
                                              const QString& json, QString* message)
{
    return call("render", {templateName, format, json}, message);
}

std::optional<QString> QmlInterpreter::call(const char* function, const QJSValueList& arguments,
                                            QString* message)
{
    const QJSValue result = host.property(QLatin1String(function)).call(arguments);
    if (result.isError()) {
        *message = describe(result);
        return std::nullopt;
    }
    const QJSValue failure = result.property(QStringLiteral("failure"));
    if (!failure.isUndefined()) {
        *message = failure.toString();
        return std::nullopt;
    }
    return result.property(QStringLiteral("text")).toString();
}

} // namespace

std::unique_ptr<ScriptInterpreter> ScriptInterpreter::start(QString* message)
{
    auto interpreter = std::make_unique<QmlInterpreter>();
    if (!interpreter->load(message))
        return nullptr;
    return interpreter;
}

} // namespace corvane
