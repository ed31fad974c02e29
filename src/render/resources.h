#pragma once

#include <QByteArray>
#include <QString>

namespace vantrel {

/// Where the compiled-in resources of the report lie. They register themselves when what they are
/// linked into is loaded.
QString resourceRoot();
/// The path of one of them.
QString resourcePath(const QString& name);
/// The content of a compiled-in file, wherever it lies.
QByteArray resourceBytes(const QString& path);
/// Whether a path leads to a compiled-in resource.
bool isResourcePath(const QString& path);

} // namespace vantrel
