#pragma once

#include <QString>

#include <memory>
#include <optional>

namespace corvane {

/// A JavaScript interpreter with the script layer loaded. Only what renders static forms has one:
/// the shared library is linked without.
class ScriptInterpreter {
public:
    /// The scripts of the layer in the order in which they must run, here and in a page.
    static constexpr const char* scriptFiles[] = {"polyfill.js", "corvane.js",
                                                  "handlebars.min-v4.0.5.js", "htmlparser.js",
                                                  "report-engine.js"};

    /// Starts one and loads the layer; null, with a message, if that fails.
    static std::unique_ptr<ScriptInterpreter> start(QString* message);

    ScriptInterpreter() = default;
    virtual ~ScriptInterpreter() = default;
    ScriptInterpreter(const ScriptInterpreter&) = delete;
    ScriptInterpreter& operator=(const ScriptInterpreter&) = delete;

    /// @name Each is false, or gives no text, after a failure, and leaves a message.
    /// @{
    virtual bool run(const QString& script, QString* message) = 0;
    /// Parses the template at once, unlike the script layer, which puts it off to the first use.
    virtual bool registerPartial(const QString& name, const QString& format, const QString& text,
                                 QString* message) = 0;
    virtual std::optional<QString> render(const QString& templateName, const QString& format,
                                          const QString& json, QString* message) = 0;
    /// @}
};

} // namespace corvane
