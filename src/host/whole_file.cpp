#include "host/whole_file.h"

#include <QFile>
#include <QObject>

namespace vantrel {

bool readWholeFile(const QString& path, const char* subject, QByteArray* content, QString* error)
{
    QFile file(path);
    const auto fail = [&](const char* message) {
        if (error)
            *error = QObject::tr(message).arg(QString::fromLatin1(subject), file.fileName());
        return false;
    };
    if (!file.exists())
        return fail("%1 '%2' does not exist");
    if (!file.open(QIODevice::ReadOnly))
        return fail("%1 '%2' could not be opened for reading");
    if (!file.isReadable())
        return fail("%1 '%2' is not readable");
    *content = file.readAll();
    return true;
}

} // namespace vantrel
