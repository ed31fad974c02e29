#pragma once

#include "definition/colour.h"

#include <QString>

namespace vantrel::report {

/// Reads a colour: a hex code, an SVG colour name, or "rgb(R,G,B)", "hsv(H,S,V)", "hsl(H,S,L)".
///
/// @return an invalid colour if it is refused
Colour parseColour(const QString& text, QString* error);

} // namespace vantrel::report
