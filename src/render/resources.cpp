#include "render/resources.h"

#include <QFile>

namespace vantrel {

QString resourceRoot()
{
    return QStringLiteral(":vantrel/custom");
}

QString resourcePath(const QString& name)
{
    return resourceRoot() + u'/' + name;
}

QByteArray resourceBytes(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

bool isResourcePath(const QString& path)
{
    return path.startsWith(resourceRoot() + u'/');
}

} // namespace vantrel
