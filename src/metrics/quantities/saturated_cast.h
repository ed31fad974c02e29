#pragma once

#include <cmath>
#include <limits>

namespace vantrel {

/// The number without its fraction; one out of range gives the nearest limit, NaN gives 0.
template <typename Integer>
Integer saturatedCast(double number)
{
    using Limits = std::numeric_limits<Integer>;
    // One more than the greatest integer is a power of two, which a double holds exactly.
    const double end = std::ldexp(1.0, Limits::digits);
    if (std::isnan(number))
        return 0;
    if (number >= end)
        return Limits::max();
    if (number <= double(Limits::min()))
        return Limits::min();
    return Integer(number);
}

} // namespace vantrel
