#pragma once

#include <QJSEngine>
#include <QString>

namespace corvane {

/// A JavaScript interpreter with the script layer loaded. The only place that knows which
/// interpreter it is.
class ScriptInterpreter {
public:
    /// The scripts of the layer in the order in which they must run, here and in a page.
    static constexpr const char* scriptFiles[] = {"polyfill.js", "corvane.js",
                                                  "handlebars.min-v4.0.5.js", "htmlparser.js",
                                                  "report-engine.js"};

    /// Loads the layer. False with a message if one of its scripts fails.
    bool start(QString* error);

    /// @name Each is false, or leaves a message that isn't null, after a failure.
    /// @{
    bool run(const QString& script, QString* message);
    /// Parses the template at once, unlike the script layer, which puts it off to the first use.
    bool registerPartial(const QString& name, const QString& format, const QString& text,
                         QString* message);
    QString render(const QString& templateName, const QString& format, const QString& json,
                   QString* message);
    /// @}

private:
    QString call(const char* function, const QJSValueList& arguments, QString* message);

    QJSEngine engine;
    QJSValue host; ///< the functions of the prelude
};

} // namespace corvane
