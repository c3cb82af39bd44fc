#pragma once

#include <QtGlobal>

#include <optional>

namespace saldoro {

/** The nearest whole number, halves to the even one: how amounts are converted from floating point.
 *  None beyond the range of 64 bits and for a @p value that is no number. */
std::optional<qint64> RoundHalfEven(double value);

/** @p value divided by @p unit (at least 2), halves away from zero: how amounts are shown. */
qint64 RoundHalfAway(qint64 value, qint64 unit);

} // namespace saldoro
