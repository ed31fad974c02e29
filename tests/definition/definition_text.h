#pragma once

#include "definition/report_definition.h"

#include "qt_printing.h"

#include <QStringList>
#include <QVariant>

#include <gtest/gtest.h>

#include <memory>

/// Definition documents for tests.
namespace vantrel::report {

/// A document around the content of its sections, with the metric "a" and the summary entry "e".
inline QString document(const QString& metrics, const QString& summary = {},
                        const QString& sections = {})
{
    return QStringLiteral("<report xmlns='urn:x/2016/CorvaneReports' name='r'>\n<reportMetrics>\n"
                          "<reportMetric id='a' displayName='A'/>%1</reportMetrics>\n"
                          "<summary><heading/><entry id='e' reportMetric='a'/>\n%2</summary>\n"
                          "<subsections>\n%3</subsections></report>")
        .arg(metrics, summary, sections);
}

inline QString changed(const char* before, const char* after)
{
    return document({}).replace(QLatin1String(before), QLatin1String(after));
}

inline QString metric(const char* rest)
{
    return document(QStringLiteral("<reportMetric id='b' displayName='B' %1").arg(rest));
}

inline QString summary(const char* content)
{
    return document({}, content);
}

inline QString section(const char* rest)
{
    return document({}, {}, QStringLiteral("<subsection id='s' heading='S' %1").arg(rest));
}

struct Loaded {
    std::unique_ptr<ReportDefinition> definition;
    QString error = QStringLiteral("stale");
};

/// The address of a document that has none of its own.
inline const QUrl somewhere("http://a.example/b%20%25.xml");

/// Loads the text without the "@" that marks a place in it. The verdict is the same for callers who
/// want no message.
inline Loaded load(QString text, const QUrl& url = somewhere, const ReportIdScheme& scheme = {})
{
    Loaded loaded;
    const QByteArray xml = text.remove(u'@').toUtf8();
    loaded.definition.reset(ReportDefinition::load(xml, url, QString(), &loaded.error, 0, scheme));
    const std::unique_ptr<ReportDefinition> unexplained(
        ReportDefinition::load(xml, url, QString(), nullptr, 0, scheme));
    EXPECT_EQ(bool(unexplained), bool(loaded.definition));
    return loaded;
}

/// The message as it is framed for the place in the text that "@" marks; empty for no message.
inline std::string framed(const char* kind, const QString& text, const QString& message)
{
    if (message.isEmpty())
        return {};
    const QStringList lines = text.left(text.indexOf(u'@')).split(u'\n');
    return QStringLiteral("%1 in http://a.example/b %25.xml at line %2 column %3: %4")
        .arg(kind, QString::number(lines.size()), QString::number(lines.last().size()), message)
        .toStdString();
}

/// @name A record in a line: its id, then those of its fields that are neither empty nor 0
/// @{
inline QString recordLine(const QString& id, const char* names, const QVariantList& values)
{
    QString line = id;
    const QStringList words = QString(names).split(u' ');
    for (int i = 0; i < values.size(); ++i) {
        const QString text = values.at(i).toString();
        if (!text.isEmpty() && text != "0")
            line += ' ' + words.at(i) + '=' + text;
    }
    return line;
}

inline QString colourName(const Colour& colour)
{
    return colour.isValid() ? colour.name() : QString();
}

inline QString metricLine(const ReportMetric& m)
{
    return recordLine(m.id,
                      "displayName units colour type version breakdown source metricRef "
                      "sampleValue aggregation",
                      {m.displayName, m.units, colourName(m.colour), metricTypeName(m.type),
                       m.corvaneMetricVersion, m.breakdownSubsection, m.source, m.metricRef,
                       int(m.sampleValue), int(m.aggregation)});
}

inline QString subsectionLine(const Subsection& s)
{
    QStringList rows;
    for (const SubsectionEntry& entry : s.entries)
        rows += entry.isSpacer ? QStringLiteral("spacer") : entry.reportMetric;
    return recordLine(s.id, "heading colour text errorMetric requires order advices rows",
                      {s.heading, colourName(s.colour), s.text, s.errorMetric, s.requirement,
                       s.order, s.maxAdviceStrings, rows.join('+')});
}
/// @}

} // namespace vantrel::report
