#pragma once

#include <QMap>
#include <QString>
#include <QXmlStreamEntityResolver>

namespace vantrel {

/// Lets an XML reader understand the named entities of HTML. To be installed on a reader and kept
/// alive while it runs.
class HtmlEntityResolver : public QXmlStreamEntityResolver {
public:
    HtmlEntityResolver();

    /// The character of the entity; empty, which stops the reader, for an unknown name.
    QString resolveUndeclaredEntity(const QString& name) override;

private:
    QMap<QString, QString> entities;
};

} // namespace vantrel
