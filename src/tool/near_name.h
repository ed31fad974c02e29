#pragma once

#include <QString>
#include <QStringList>

namespace vantrel::tool {

/// The name among those there are that @p name was probably meant to be; empty if none is near.
QString nearName(const QString& name, const QStringList& known);

} // namespace vantrel::tool
