#pragma once

#include <QString>
#include <QXmlStreamEntityResolver>

namespace vantrel {

/// Lets an XML reader understand the named entities of HTML, whose table libxml2 has. To be
/// installed on a reader and kept alive while it runs.
class HtmlEntityResolver : public QXmlStreamEntityResolver {
public:
    /// The character of the entity; empty, which stops the reader, for an unknown name.
    QString resolveUndeclaredEntity(const QString& name) override;
};

} // namespace vantrel
