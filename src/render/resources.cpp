#include "render/resources.h"

#include <QtCore/qglobal.h>

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

bool isResourcePath(const QString& path)
{
    return path.startsWith(resourceRoot() + u'/');
}

} // namespace vantrel
