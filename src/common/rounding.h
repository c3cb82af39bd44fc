#pragma once

#include <QtGlobal>

#include <cmath>
#include <limits>
#include <optional>

namespace saldoro {

/** The nearest whole number, halves to the even one, as amounts are converted from floating point;
 *  none when it is beyond the range of @p Whole, a signed type, or when @p value is no number. */
template <typename Whole>
std::optional<Whole> RoundHalfEven(double value)
{
    const double rounded = std::nearbyint(value);
    // The greatest number of a 64-bit type is no double, the one behind it is.
    const double bound = -static_cast<double>(std::numeric_limits<Whole>::min());
    if (!(rounded >= -bound) || !(rounded < bound))
        return std::nullopt;
    return static_cast<Whole>(rounded);
}

/** How many times @p unit (at least 2) goes into @p value, halves away from zero, as amounts are
 *  shown. */
constexpr qint64 RoundHalfAway(qint64 value, qint64 unit)
{
    const qint64 rest = value % unit;
    const qint64 away = rest >= unit - rest ? 1 : -rest >= unit + rest ? -1 : 0;
    return value / unit + away;
}

} // namespace saldoro
