#pragma once

#include "common/creditor_kind.h"
#include "common/program_values.h"

#include <QString>

namespace saldoro {

/*
 * The mandate note of a payment: an item of the contract sheet whose key and description tell the
 * payment and whose text holds number and date of the mandate.
 */

/** Number and date of a payment mandate as the form shows them. */
struct MandateNote
{
    QString mandato;
    QString mandatoDell;
};

/** What the item codes of all notes begin with. @p notes is the external code of the notes. */
QString MandateKeyStart(const QString &notes);

/** Item code of a payment's note: MandateKeyStart() and the number. Reads the code map and throws
 *  as CodiceEsterno(). */
QString VoceMandato(const ProgramValues &values, qint32 paymentNumber);

/** Description of a payment's note: "Pag. N." number " - " creditor. */
QString MandateDescription(qint32 paymentNumber, const QString &creditore);

/** "Mandato nr." number " del " date; the date box's text as it stands. */
QString ComposeMandateNote(const QString &mandato, const QString &mandatoDell);

/**
 * Reads a note back: the number between the first "." and the first "del", the date behind that;
 * for a professional the date has at most the ten characters of EmptyDateText, for a company it is
 * the rest of the note. Never fails: without a "." before "del" the number starts with the note,
 * without "del" it runs to the end and the date is empty.
 */
MandateNote ParseMandateNote(const QString &note, CreditorKind kind);

} // namespace saldoro
