#pragma once

#include <QByteArray>
#include <QString>

namespace vantrel {

/// Where the compiled-in resources of the report lie.
QString resourceRoot();
/// The path of one of them. Makes sure that they are registered, which an object library that is
/// linked statically doesn't do by itself.
QString resourcePath(const QString& name);
/// The content of a compiled-in file, wherever it lies.
QByteArray resourceBytes(const QString& path);
/// Whether a path leads to a compiled-in resource.
bool isResourcePath(const QString& path);

} // namespace vantrel
