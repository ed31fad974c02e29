#pragma once

namespace vantrel::report {

/// Finds a colour by its SVG name in small letters.
///
/// @param rgb takes 0xRRGGBB
/// @return false if there is none of this name
bool findNamedColour(const char* name, unsigned* rgb);

} // namespace vantrel::report
