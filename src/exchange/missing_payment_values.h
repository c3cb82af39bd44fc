#pragma once

#include <QString>
#include <QStringList>

namespace saldoro {

/**
 * Gives payments of a ledger values that they lack, without which the main screen does not open:
 * all of them or none. Each is told by three words: the number of the payment, the field (Del,
 * Importo or ImportoIVA in any letter case, see SettablePaymentFields()) and a day or an amount as
 * an Italian spreadsheet writes it. Puts a copy of the ledger beside it first and gives the copy's
 * path.
 *
 * Throws SaldoroError, with nothing changed, for words that can't be read, or not for sure as in
 * SureValueOfCell(), when no payment or more than one has the number, when the field holds a value,
 * when the table has triggers and while the project is open; also DatabaseError, FileError. The
 * number of words is a multiple of three, and none is empty.
 */
QString SetPaymentValues(const QString &ledger, const QStringList &words);

/** Numbers of the payments of a ledger that lack their day, in stored order; one without a number
 *  is left out. Throws DatabaseError, FileError. */
QStringList PaymentsWithoutDay(const QString &ledger);

} // namespace saldoro
