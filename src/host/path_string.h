#pragma once

#include <QString>

namespace vantrel::PathString {

/// The path of @p relative below @p root, a trailing separator included. With an empty root the
/// relative path itself, so that it counts from the current directory.
inline QString filePath(const QString& root, const QString& relative)
{
    if (root.isEmpty() || root.endsWith(u'/'))
        return root + relative;
    return root + u'/' + relative;
}

} // namespace vantrel::PathString
