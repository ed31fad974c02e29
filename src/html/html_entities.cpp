#include "html/html_entities.h"

#include <libxml/HTMLparser.h>

namespace vantrel {

QString HtmlEntityResolver::resolveUndeclaredEntity(const QString& name)
{
    const QByteArray utf8 = name.toUtf8();
    const auto* const entity = htmlEntityLookup(reinterpret_cast<const xmlChar*>(utf8.constData()));
    return entity ? QString(QChar(ushort(entity->value))) : QString();
}

} // namespace vantrel
