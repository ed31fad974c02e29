#pragma once

#include <QFile>
#include <QJsonObject>
#include <QString>
#include <QStringList>
#include <QVector>

#include <memory>
#include <optional>

namespace corvane {

class ScriptInterpreter;

/// The form of a template or of a rendering.
class ReportFormat {
public:
    enum value_type { Unknown = 0, Html = 1, Text = 2 };

    ReportFormat(value_type format) : value(format) {}
    /// The name that the scripts know; empty for Unknown.
    QString scriptName() const;
    /// The type under which a page carries a template of this form.
    QString mimeType() const;

private:
    value_type value;
};

/// A page that renders itself in the browser, but for the data document between its two parts.
struct DynamicPage {
    QString beforeData;
    QString afterData;
};

/// Renders Handlebars templates with a data document. One instance serves one report.
///
/// A render has failed if its error text isn't empty afterwards. No exception of a script gets out.
class ReportEngine {
public:
    ReportEngine();
    ~ReportEngine();
    ReportEngine(const ReportEngine&) = delete;
    ReportEngine& operator=(const ReportEngine&) = delete;

    /// Registers the text of a file as a partial. One that isn't compiled in is parsed at once.
    bool loadPartialFromFile(const QString& name, QFile& file, ReportFormat format, QString* error);
    /// Runs a script, and keeps it for the page. The interpreter runs it when it is first needed;
    /// one that isn't compiled in is run at once.
    bool loadJavaScriptFromFile(QFile& file, QString* error);
    /// Adds text to the head of the page.
    void loadAdditionalHeadContent(const QString& content);

    /// A complete page that renders the template in the browser. Starts no interpreter.
    QString renderDynamicHtml(const QJsonObject& data, const QString& templateName, QString* error);
    /// The two parts of that page, which don't depend on the data.
    DynamicPage dynamicPage(const QString& templateName) const;

    /// Renders a template now, in the interpreter.
    QString renderStatic(const QJsonObject& data, const QString& templateName, ReportFormat format,
                         QString* error);

private:
    /// A partial or a script.
    struct Source {
        std::optional<QString> name; ///< of a partial
        QString text;
        ReportFormat format;
        bool isScript() const { return !name; }
    };

    bool addSource(const Source& source, bool isTrusted, QString* error);
    bool runPendingSources(QString* error);
    bool runSource(const Source& source, QString* error);
    QString scriptElements() const;
    QString templateElements() const;

    QVector<Source> sources; ///< in the order of loading
    int sourcesRun = 0;      ///< how many of them the interpreter has
    QStringList headContent;
    std::unique_ptr<ScriptInterpreter> interpreter;
};

/// The data document as text that can stand in a script element of a page: nothing in it can end
/// the element or be taken for a tag.
QByteArray pageJson(const QJsonObject& data);

} // namespace corvane
