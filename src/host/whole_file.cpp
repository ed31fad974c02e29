#include "host/whole_file.h"

#include <QFile>
#include <QObject>

namespace vantrel {

bool readWholeFile(const QString& path, const FileMessages& messages, QByteArray* content,
                   QString* error)
{
    QFile file(path);
    const auto fail = [&](const char* message) {
        if (error)
            *error = QObject::tr(message).arg(file.fileName());
        return false;
    };
    if (!file.exists())
        return fail(messages.missing);
    if (!file.open(QIODevice::ReadOnly))
        return fail(messages.closed);
    if (!file.isReadable())
        return fail(messages.unreadable);
    *content = file.readAll();
    return true;
}

} // namespace vantrel
