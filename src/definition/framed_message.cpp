#include "definition/framed_message.h"

#include <QObject>

namespace vantrel::report {

QString framedMessage(const char* frame, const QUrl& url, qint64 line, qint64 column,
                      const QString& text)
{
    return QObject::tr(frame).arg(url.toString(), QString::number(line), QString::number(column),
                                  text);
}

} // namespace vantrel::report
