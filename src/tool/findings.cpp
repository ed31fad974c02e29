#include "tool/findings.h"

#include <QRegularExpression>

#include <cstdio>
#include <unistd.h>

namespace vantrel::tool {

namespace {

bool isColoured()
{
    const QByteArray refusal = qgetenv("NO_COLOR");
    return refusal.isEmpty() && isatty(STDERR_FILENO) != 0 && qgetenv("TERM") != "dumb";
}

QString placeOf(const Finding& finding)
{
    QString place = finding.file;
    for (const int number : {finding.line, finding.column}) {
        if (number > 0)
            place += u':' + QString::number(number);
    }
    return place;
}

QString wordOf(Severity severity)
{
    return severity == Severity::Error ? QStringLiteral("error") : QStringLiteral("warning");
}

QString message(const Finding& finding)
{
    if (finding.suggestion.isEmpty())
        return finding.text;
    return finding.text + QStringLiteral(" (did you mean '%1'?)").arg(finding.suggestion);
}

QString colouredTextOf(const Finding& finding)
{
    const char* const colour = finding.severity == Severity::Error ? "31" : "35";
    return QStringLiteral("\x1b[1m%1:\x1b[0m \x1b[1;%2m%3:\x1b[0m %4")
        .arg(placeOf(finding), QLatin1String(colour), wordOf(finding.severity), message(finding));
}

} // namespace

Finding fileError(const QString& file, const QString& text)
{
    Finding finding;
    finding.file = file;
    finding.text = text;
    return finding;
}

QList<Finding> findingsFromMessage(const QString& file, const QString& text)
{
    static const QRegularExpression framed(
        QStringLiteral("^(?:(?:Error|Warning) in )?.*? at line (\\d+) column (\\d+)[:.] (.*)$"),
        QRegularExpression::DotMatchesEverythingOption);
    QList<Finding> findings;
    for (const QString& paragraph : text.split(QStringLiteral("\n\n"), Qt::SkipEmptyParts)) {
        Finding finding = fileError(file, paragraph);
        const QRegularExpressionMatch match = framed.match(paragraph);
        if (match.hasMatch()) {
            finding.line = match.captured(1).toInt();
            finding.column = match.captured(2).toInt();
            finding.text = match.captured(3);
        }
        findings.append(finding);
    }
    return findings;
}

QString textOf(const Finding& finding)
{
    return placeOf(finding) + QStringLiteral(": ") + wordOf(finding.severity) +
           QStringLiteral(": ") + message(finding);
}

void printFindings(const QList<Finding>& findings)
{
    const bool coloured = isColoured();
    for (const Finding& finding : findings) {
        const QString line = coloured ? colouredTextOf(finding) : textOf(finding);
        std::fprintf(stderr, "%s\n", line.toUtf8().constData());
    }
}

} // namespace vantrel::tool
