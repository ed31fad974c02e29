#include "render/resources.h"

#include <QFile>

static void registerResources()
{
    Q_INIT_RESOURCE(vantrel);
}

namespace vantrel {

QString resourceRoot()
{
    static const bool registered = [] {
        registerResources();
        return true;
    }();
    Q_UNUSED(registered)
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
