#include "common/rounding.h"

#include <cmath>
#include <limits>

namespace saldoro {

std::optional<qint64> RoundHalfEven(double value)
{
    const double rounded = std::nearbyint(value);
    // The greatest 64-bit number is not a double; the one above it is.
    constexpr double bound = -static_cast<double>(std::numeric_limits<qint64>::min());
    if (!(rounded >= -bound) || !(rounded < bound))
        return std::nullopt;
    return static_cast<qint64>(rounded);
}

qint64 RoundHalfAway(qint64 value, qint64 unit)
{
    const qint64 rest = value % unit;
    const qint64 away = rest >= unit - rest ? 1 : -rest >= unit + rest ? -1 : 0;
    return value / unit + away;
}

} // namespace saldoro
