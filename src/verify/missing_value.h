#pragma once

#include "database/record_set.h"

#include <QList>
#include <QString>

namespace saldoro {

/** A value to be given to a payment that has none; without it the main screen does not open. */
struct MissingValue
{
    qint32 payment = 0;
    QString field; ///< Del, Importo or ImportoIVA, in these letters
    NewValue value;
};

/**
 * Reads the three words that name a missing value: a payment number, a field in any letter case,
 * and a day dd/MM/yyyy or an amount in Italian notation with four decimals at most. Nothing is
 * guessed: throws SaldoroError for whatever is not exactly that.
 */
MissingValue ParseMissingValue(const QString &payment, const QString &field, const QString &value);

/**
 * Sets the values in a ledger, each of one payment whose field is null. First makes sure that all
 * of them can be set, then puts a copy of the ledger beside it. Returns the copy's path.
 *
 * Throws SaldoroError, with nothing changed, when no payment or more than one has the number, the
 * field holds a value or is given twice, and DatabaseError, also when the copy can't be made. Once
 * the copy is made an error has the details "Valori già impostati", how many of the values are
 * written, and "Copia del registro com'era".
 */
QString SetMissingValues(const QString &ledger, const QList<MissingValue> &values);

} // namespace saldoro
