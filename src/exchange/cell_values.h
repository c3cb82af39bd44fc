#pragma once

#include "common/currency.h"
#include "database/field_value.h"

#include <QDate>
#include <QString>

#include <optional>

namespace saldoro {

/** How amounts and days are written. */
enum class Notation
{
    Italian,      ///< 1.234,56 and 31/12/2024
    International ///< 1,234.56 and 2024-12-31
};

/**
 * The amount that a text states; no value for a text that states none exactly. Blanks and one "€"
 * around the amount are ignored, a sign may stand in front. The digits may stand in groups of three
 * with the notation's mark between them; the first group then does not begin with 0. One to four
 * decimals may follow the decimal mark. The international notation can't have three, which may be
 * Italian thousands.
 */
std::optional<Currency> AmountOf(QStringView text, Notation notation);

/** The day that a text states: 31/12/2024, whose day and month may have one digit, or 2024-12-31.
 *  Blanks around it are ignored, and a midnight behind the latter. No value for any other text and
 *  for a day that the calendar does not have. The year always has four digits; otherwise it may be
 *  any, unlike in DataDaTesto(). */
std::optional<QDate> DayOf(QStringView text, Notation notation);

/** A whole number of 32 bits in plain digits; a sign may stand in front, blanks around it do not
 *  count. */
std::optional<qint32> WholeOf(QStringView text);

/** The value that a cell gives a field of that type; no value for a text that is not written as one
 *  of the type. A null text gives null, an empty one stays an empty text in a date field, too. */
std::optional<NewValue> ValueOfCell(const QString &cell, FieldType type, Notation notation);

/** As ValueOfCell(), but an Italian amount that the other notation reads as another one has no
 *  value. Without a notation the cell is read in Italian, and "250.125", which may have three
 *  decimals, has no value. @p problem gets the reason for having none, in Italian. */
std::optional<NewValue> SureValueOfCell(const QString &cell, FieldType type,
                                        std::optional<Notation> notation, QString &problem);

/** An amount in the Italian notation, with two decimals or four and without groups. */
QString AmountCell(Currency amount);

} // namespace saldoro
