#pragma once

#include "common/currency.h"

#include <QDate>
#include <QString>

#include <optional>

namespace saldoro {

/** How the values of a file are written. */
enum class CsvDialect
{
    Italian,      ///< ";", 1.234,56 and 31/12/2024
    International ///< ",", 1234.56 and 2024-12-31
};

/**
 * An exact amount; no value for anything that is none. Blanks and one "€" around it do not count,
 * a sign may stand in front. Italian: plain digits or groups of three with ".", then perhaps ","
 * and one to four decimals. International: digits, then perhaps "." and one, two or four decimals;
 * three might be thousands.
 */
std::optional<Currency> AmountOf(QStringView text, CsvDialect dialect);

/** A day: 31/12/2024 (one digit will do for day and month) or 2024-12-31, where a midnight behind
 *  it does not count. No value for anything else and for a day that the calendar does not have. */
std::optional<QDate> DayOf(QStringView text, CsvDialect dialect);

/** A whole number of 32 bits in plain digits, a sign may stand in front. */
std::optional<qint32> WholeOf(QStringView text);

/** An amount as the Italian dialect writes it, with two decimals or four and without groups. */
QString AmountCell(Currency amount);

} // namespace saldoro
