#pragma once

#include <cmath>
#include <limits>
#include <optional>

namespace saldoro {

/** The nearest whole number, halves to the even one; none when it is beyond the range of @p Whole,
 *  a signed type, or when @p value is no number. */
template <typename Whole>
std::optional<Whole> RoundedTo(double value)
{
    const double rounded = std::nearbyint(value);
    // The greatest number of a 64-bit type is no double, the one behind it is.
    const double bound = -static_cast<double>(std::numeric_limits<Whole>::min());
    if (!(rounded >= -bound) || !(rounded < bound))
        return std::nullopt;
    return static_cast<Whole>(rounded);
}

} // namespace saldoro
