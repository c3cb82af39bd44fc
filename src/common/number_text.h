#pragma once

#include <QString>

namespace saldoro {

/**
 * Lenient reading of the number that a text begins with, used wherever a number is typed into an
 * invoice form: blanks (space, tab, line ends) are ignored anywhere, then an optional sign, digits
 * with at most one "." and an optional exponent are read up to the first character that cannot
 * continue the number. No number gives 0. A number beyond the range of a double gives infinity.
 */
double LeadingNumber(const QString &text);

/** What LeadingNumber() leaves unread, without blanks: "'000.50" of "1'000.50". */
QString BehindLeadingNumber(const QString &text);

/** Decimal text of a rate: "." as decimal point, up to 15 significant digits, no blanks, no
 *  trailing zeros, e.g. 22, 22.5, 0.5. Below 0.0001 and from 1E+15 on with an exponent: 1E-05. For
 *  finite values. */
QString RateText(double value);

/** Whether @p mark parts the characters into groups of three, of which the first may have fewer,
 *  and stands nowhere else. That they are digits is not looked at. */
bool IsInGroupsOfThree(QStringView text, QChar mark);

} // namespace saldoro
