#pragma once

#include "database/record_set.h"

#include <QList>
#include <QString>

namespace saldoro {

/** A field that a payment can be given a value for when it has none. */
struct SettableField
{
    QString name;
    QString example; ///< of how the value is written
};

/** The field of that name in any letter case: Del, Importo or ImportoIVA; null for any other. */
const SettableField *SettableFieldNamed(const QString &name);

/** A value to be given to a payment that has none; without it the main screen does not open. */
struct MissingValue
{
    qint32 payment = 0;
    QString field; ///< of a SettableField
    NewValue value;
};

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
