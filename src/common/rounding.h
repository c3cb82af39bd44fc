#pragma once

#include <QtGlobal>

#include <optional>

namespace saldoro {

/** The nearest whole number, halves to the even one, as amounts are converted from floating point;
 *  none when it is beyond the range of @p Whole (qint32 or qint64), or when @p value is no
 *  number. */
template <typename Whole>
std::optional<Whole> RoundHalfEven(double value);

/** How many times @p unit (at least 2) goes into @p value, halves away from zero, as amounts are
 *  shown. */
qint64 RoundHalfAway(qint64 value, qint64 unit);

} // namespace saldoro
