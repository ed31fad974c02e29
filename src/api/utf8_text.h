#pragma once

#include <QString>

#include <cstddef>

namespace vantrel {

/// Longer texts don't fit into Qt's strings.
constexpr std::size_t longestText = (std::size_t(1) << 30) - 64;

/// Whether the text is UTF-8 to its end. A null pointer counts as an empty text. Needs no table and
/// no memory, so it works while the process ends.
bool isValidUtf8(const char* text);

/// Whether the text is too long. A null pointer counts as an empty text.
bool isTooLong(const char* text);

} // namespace vantrel
