#include "host/whole_file.h"

#include "host/error_message.h"

#include <QFile>
#include <QObject>

namespace vantrel {

bool readWholeFile(const QString& path, const FileMessages& messages, QByteArray* content,
                   QString* error)
{
    QFile file(path);
    const auto failWith = [&](const char* message) {
        return fail(error, QObject::tr(message).arg(file.fileName()));
    };
    clearError(error);
    if (!file.exists())
        return failWith(messages.missing);
    if (!file.open(QIODevice::ReadOnly))
        return failWith(messages.closed);
    if (!file.isReadable())
        return failWith(messages.unreadable);
    *content = file.readAll();
    return true;
}

} // namespace vantrel
