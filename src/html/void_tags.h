#pragma once

#include <QString>

namespace vantrel {

/// Closes the tags of elements that have no content, such as "<br>", which becomes "<br/>". A tag
/// that is closed already stays as it is.
QString closeVoidTags(const QString& html);

} // namespace vantrel
