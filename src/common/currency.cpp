#include "common/currency.h"

#include "common/errors.h"
#include "common/rounding.h"

#include <QtNumeric>

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
    if (qMulOverflow(euros, Scale, &scaled))
        overflow();
    return fromScaled(scaled);
}

Currency Currency::fromDouble(double value)
{
    const auto scaled = RoundHalfEven(value * static_cast<double>(Scale));
    if (!scaled)
        overflow();
    return fromScaled(*scaled);
}

double Currency::toDouble() const
{
    return static_cast<double>(m_scaled) / static_cast<double>(Scale);
}

Currency Currency::operator+(Currency other) const
{
    qint64 sum = 0;
    if (qAddOverflow(m_scaled, other.m_scaled, &sum))
        overflow();
    return fromScaled(sum);
}

Currency Currency::operator-(Currency other) const
{
    qint64 difference = 0;
    if (qSubOverflow(m_scaled, other.m_scaled, &difference))
        overflow();
    return fromScaled(difference);
}

} // namespace saldoro
