#pragma once

#include "common/currency.h"

#include <QString>

namespace saldoro {

/**
 * The amount in Italian notation whatever the machine's settings: "." between groups of three
 * digits, "," before exactly two decimals, a leading minus sign for every negative value. The
 * four decimals held are rounded half away from zero: 0,005 shows 0,01 and -0,005 shows -0,01.
 */
QString FormatImporto(Currency amount);

/** The amount that FormatImporto() shows. */
Currency ShownAmount(Currency amount);

/** "€ " followed by FormatImporto. */
QString EuroText(Currency amount);

/** EuroText(), or the empty text for an amount of exactly zero. */
QString FormatImportoEuro(Currency amount);

/** The amount in plain form with all its decimals: "-1234.5000". */
QString FourDecimals(Currency amount);

/** Rewrites an amount from Italian notation to plain form: all "." go, then the first "," becomes
 *  "."; later commas stay. Rewrites the argument and returns it. */
QString PuntoDecimale(QString &text);

/** Reads an amount in plain form: LeadingNumber, converted to currency. A text without a number
 *  gives 0. Throws OverflowError beyond the currency range. */
Currency PlainAmount(const QString &text);

/** Reads an amount in Italian notation: PuntoDecimale on the argument, which stays rewritten, then
 *  PlainAmount. Throws OverflowError. */
Currency ImportoDaTesto(QString &text);

/** The same for a text that is not to be rewritten. */
Currency ImportoDaTesto(QString &&text);

} // namespace saldoro
