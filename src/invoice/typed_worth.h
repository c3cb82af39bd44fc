#pragma once

#include "invoice/amount_chain.h"

namespace saldoro {

/** How a typed text is read. */
enum class TypedNotation
{
    Point, ///< an amount with the point before the decimals; a comma ends it
    Comma, ///< an amount with the comma before the decimals; points do not count
    Rate   ///< a percentage with the point before the decimals
};

/** How what is typed into an amount field is read once the field is left. Says nothing of a
 *  company's TotaleFattura, which stays as it is typed. */
TypedNotation NotationOf(const AmountField &field);

/** What a typed text is read as, in the form in which it is shown. Throws OverflowError. */
QString TypedWorth(const QString &typed, TypedNotation notation);

/** A line for the user: what a text is worth while it is typed. Never throws. */
QString WorthLine(const QString &typed, TypedNotation notation);

/** A line for the user when a text is worth something else than a reader of Italian takes it for,
 *  else nothing. Throws OverflowError. */
QString MisreadLine(const QString &typed, TypedNotation notation);

} // namespace saldoro
