#pragma once

#include "common/currency.h"
#include "database/field_value.h"
#include "exchange/notation.h"

#include <QDate>
#include <QString>

#include <optional>

namespace saldoro {

/**
 * An exact amount; no value for anything that is none. Blanks and one "€" around it do not count,
 * a sign may stand in front. The digits are plain, or in groups of three with the notation's mark,
 * the first of which does not begin with 0. One to four decimals may follow the decimal mark. Three
 * are refused in the international notation, since they may be Italian thousands.
 */
std::optional<Currency> AmountOf(QStringView text, Notation notation);

/** A day: 31/12/2024 (one digit will do for day and month) or 2024-12-31, where a midnight behind
 *  it does not count; nor do blanks around it. No value for anything else and for a day that the
 *  calendar does not have. Unlike in DataDaTesto() the year has four digits and may be any. */
std::optional<QDate> DayOf(QStringView text, Notation notation);

/** A whole number of 32 bits in plain digits; a sign may stand in front, blanks around it do not
 *  count. */
std::optional<qint32> WholeOf(QStringView text);

/** The value that a cell gives a field of that type; no value for a text that is not written as one
 *  of the type. A null text gives null, an empty one stays an empty text in a date field, too. */
std::optional<NewValue> ValueOfCell(const QString &cell, FieldType type, Notation notation);

/** As ValueOfCell(). No value, too, for an amount in the Italian notation that the other one would
 *  read as another amount. Where there is no value, @p problem says why, in Italian. */
std::optional<NewValue> SureValueOfCell(const QString &cell, FieldType type, Notation notation,
                                        QString &problem);

/** An amount in the Italian notation, with two decimals or four and without groups. */
QString AmountCell(Currency amount);

} // namespace saldoro
