#include "definition/schema/schema_messages.h"

#include <QObject>
#include <QSourceLocation>
#include <QUrl>
#include <QXmlStreamReader>

namespace vantrel::report {

namespace {

QString plainText(const QString& markup)
{
    QXmlStreamReader reader(markup);
    QString text;
    while (!reader.atEnd()) {
        if (reader.readNext() == QXmlStreamReader::Characters)
            text += reader.text();
    }
    return text;
}

} // namespace

void MessageHandler::handleMessage(QtMsgType type, const QString& description,
                                   const QUrl& identifier, const QSourceLocation& sourceLocation)
{
    if (error) {
        if (!error->isEmpty())
            *error += QLatin1String("\n\n");
        *error += QObject::tr("%1 at line %2 column %3. %4")
                      .arg(sourceLocation.uri().toString(), QString::number(sourceLocation.line()),
                           QString::number(sourceLocation.column()), plainText(description));
    }
    if (chained)
        chained->message(type, description, identifier, sourceLocation);
}

} // namespace vantrel::report
