#pragma once

#include <QString>

/// Options that come from the environment. Each exists under three names, a prefix of the family
/// before one stem; the first prefix under which the variable is set decides, whatever its value.
namespace vantrel {

/// The option's text, decoded as local 8-bit text; @p fallback if it is set under no prefix.
QString textOption(const char* stem, const QString& fallback);

/// False if the option is set under no prefix or says "no", "off", "disable", "disabled" or "0" in
/// any case; true for any other text, the empty one included.
bool booleanOption(const char* stem);

} // namespace vantrel
