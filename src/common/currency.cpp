#include "common/currency.h"

#include "common/errors.h"

#include <cmath>

namespace saldoro {

using namespace Qt::StringLiterals;

namespace {

[[noreturn]] void overflow()
{
    throw OverflowError(u"Un importo supera il massimo che il programma può trattare."_s,
                        u"Controllare gli importi e le aliquote scritti."_s);
}

} // namespace

Currency Currency::fromWhole(qint64 euros)
{
    qint64 scaled = 0;
    if (__builtin_mul_overflow(euros, Scale, &scaled))
        overflow();
    return fromScaled(scaled);
}

Currency Currency::fromDouble(double value)
{
    // The default rounding mode is to nearest, ties to even. 2^63 itself is out of range while
    // -2^63 is in; both are exact doubles.
    const double scaled = std::nearbyint(value * static_cast<double>(Scale));
    constexpr double limit = 9223372036854775808.0;
    if (!(scaled >= -limit && scaled < limit))
        overflow();
    return fromScaled(static_cast<qint64>(scaled));
}

double Currency::toDouble() const
{
    return static_cast<double>(m_scaled) / static_cast<double>(Scale);
}

Currency Currency::operator+(Currency other) const
{
    qint64 sum = 0;
    if (__builtin_add_overflow(m_scaled, other.m_scaled, &sum))
        overflow();
    return fromScaled(sum);
}

Currency Currency::operator-(Currency other) const
{
    qint64 difference = 0;
    if (__builtin_sub_overflow(m_scaled, other.m_scaled, &difference))
        overflow();
    return fromScaled(difference);
}

} // namespace saldoro
