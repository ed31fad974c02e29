#include "render/report_renderer.h"

#include "render/branding.h"
#include "render/html_inliner.h"
#include "render/report_engine.h"
#include "render/report_templates.h"
#include "render/resources.h"

#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>

namespace vantrel {

using corvane::ReportEngine;
using corvane::ReportFormat;

namespace {

QByteArray reportResource(const char* name)
{
    return resourceBytes(resourcePath(QLatin1String(name)));
}

const QJsonArray& headerRows()
{
    static const auto& rows =
        *new QJsonArray(QJsonDocument::fromJson(reportResource("header-data.json")).array());
    return rows;
}

void loadResources(ReportEngine& engine)
{
    QString error;
    for (const ReportTemplate& row : reportTemplates) {
        QFile file(resourcePath(QLatin1String(row.file)));
        const QString name = QFileInfo(file).baseName();
        if (!engine.loadPartialFromFile(name, file, row.format, &error)) {
            qWarning("Error generating report, failed when processing template '%s':\n%s",
                     qPrintable(file.fileName()), qPrintable(error));
            error.clear();
        }
    }
    QFile script(resourcePath(QStringLiteral("vantrel.js")));
    if (!engine.loadJavaScriptFromFile(script, &error)) {
        qWarning("Error generating report, failed when processing javascript file '%s'\n:%s",
                 qPrintable(script.fileName()), qPrintable(error));
    }
    engine.loadAdditionalHeadContent(QString::fromUtf8(reportResource("header.html")));
}

/// The page around the data, with all resources inline. They are compiled in, so it is the same for
/// every report of the process; and since the data holds no "<", nothing in it is to be inlined.
struct InlinedPage {
    QByteArray beforeData;
    QByteArray afterData;

    InlinedPage()
    {
        ReportEngine engine;
        loadResources(engine);
        const corvane::DynamicPage page =
            engine.dynamicPage(templateNameForFormat(ReportOutputKind::DynamicHtml));
        beforeData = inlineHtmlResources(page.beforeData, resourceRoot()).toLocal8Bit();
        afterData = inlineHtmlResources(page.afterData, resourceRoot()).toLocal8Bit();
    }
};

const InlinedPage& inlinedPage()
{
    static const auto& page = *new InlinedPage;
    return page;
}

QByteArray renderPage(const QJsonObject& document)
{
    const InlinedPage& page = inlinedPage();
    return page.beforeData + corvane::pageJson(document) + page.afterData;
}

QByteArray renderText(ReportOutputKind kind, const QJsonObject& document)
{
    const QString templateName = templateNameForFormat(kind);
    ReportEngine engine;
    loadResources(engine);
    QString error;
    const QString text = engine.renderStatic(
        document, templateName, templateName.isEmpty() ? ReportFormat::Unknown : ReportFormat::Text,
        &error);
    if (!error.isEmpty())
        qWarning("Error generating static report: %s", qPrintable(error));
    return text.toLocal8Bit();
}

} // namespace

void prepareRendering()
{
    headerRows();
    prepareBranding();
    inlinedPage();
}

QString templateNameForFormat(ReportOutputKind kind)
{
    switch (kind) {
    case ReportOutputKind::Text:
        return QStringLiteral("text_template");
    case ReportOutputKind::DynamicHtml:
        return QStringLiteral("html_template");
    case ReportOutputKind::Csv:
        return QStringLiteral("csv_template");
    case ReportOutputKind::Json:
        break;
    }
    return QString();
}

QJsonObject makeReportDocument(const MetricStore& metrics, const ReportSections& sections)
{
    return {
        {QStringLiteral("subsections"), sections.subsections},
        {QStringLiteral("summaryData"), sections.summary},
        {QStringLiteral("brandingData"), sections.branding},
        {QStringLiteral("colorData"), sections.colors},
        {QStringLiteral("headerData"), headerRows()},
        {QStringLiteral("data"), metrics.toDataObject()},
        {QStringLiteral("metricData"), metrics.toMetricDataObject()},
    };
}

QByteArray renderReport(ReportOutputKind kind, const MetricStore& metrics,
                        const ReportSections& sections)
{
    const QJsonObject document = makeReportDocument(metrics, sections);
    if (kind == ReportOutputKind::Json)
        return QJsonDocument(document).toJson();
    if (kind == ReportOutputKind::DynamicHtml)
        return renderPage(document);
    return renderText(kind, document);
}

} // namespace vantrel
