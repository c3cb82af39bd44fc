#pragma once

#include <QtGlobal>

#include <compare>

namespace saldoro {

/**
 * An amount of money: signed 64-bit fixed point with four decimals, held as a count of
 * ten-thousandths. All arithmetic is exact; a result beyond the range throws OverflowError.
 */
class Currency
{
public:
    static constexpr int Decimals = 4;
    /** How many parts a euro has. */
    static constexpr qint64 Scale = 10'000;

    constexpr Currency() = default;

    /** The value of @p tenThousandths / 10,000. */
    static constexpr Currency fromScaled(qint64 tenThousandths)
    {
        Currency result;
        result.m_scaled = tenThousandths;
        return result;
    }

    /** A whole number of euros; throws OverflowError beyond the range. */
    static Currency fromWhole(qint64 euros);

    /**
     * Nearest ten-thousandth of @p value, ties to even. The product with Scale is computed in
     * floating point and then rounded, so that decimal ties count as ties: 0,00025 gives 2
     * ten-thousandths although the double lies slightly above. Beyond some thousand billion a
     * double no longer holds ten-thousandths, and the last decimals are approximate. Throws
     * OverflowError beyond the range and for a value that is no number.
     */
    static Currency fromDouble(double value);

    /** The count of ten-thousandths, as stored in the databases. */
    constexpr qint64 scaled() const { return m_scaled; }

    /** The nearest double, or one beside it beyond 2^53 ten-thousandths. For rates and percentages,
     *  never for sums. */
    double toDouble() const;

    Currency operator+(Currency other) const;
    Currency operator-(Currency other) const;
    Currency &operator+=(Currency other) { return *this = *this + other; }

    // clang-tidy takes the zero that comparisons are rewritten with for a pointer.
    constexpr auto operator<=>(const Currency &) const = default; // NOLINT(modernize-use-nullptr)

private:
    qint64 m_scaled = 0;
};

} // namespace saldoro
