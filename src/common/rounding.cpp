#include "common/rounding.h"

#include <cmath>
#include <limits>

namespace saldoro {

template <typename Whole>
std::optional<Whole> RoundHalfEven(double value)
{
    const double rounded = std::nearbyint(value);
    // The greatest 64-bit number is not a double; the one above it is.
    const double bound = -static_cast<double>(std::numeric_limits<Whole>::min());
    if (!(rounded >= -bound) || !(rounded < bound))
        return std::nullopt;
    return static_cast<Whole>(rounded);
}

template std::optional<qint32> RoundHalfEven(double value);
template std::optional<qint64> RoundHalfEven(double value);

qint64 RoundHalfAway(qint64 value, qint64 unit)
{
    const qint64 rest = value % unit;
    const qint64 away = rest >= unit - rest ? 1 : -rest >= unit + rest ? -1 : 0;
    return value / unit + away;
}

} // namespace saldoro
