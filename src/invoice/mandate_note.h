#pragma once

#include "common/creditor_kind.h"

#include <QString>

namespace saldoro {

/** Number and date of a payment mandate as the form shows them. */
struct MandateNote
{
    QString mandato;
    QString mandatoDell;
};

/** "Mandato nr." number " del " date; the date box's text as it stands. */
QString ComposeMandateNote(const QString &mandato, const QString &mandatoDell);

/**
 * Reads a note back: the number between the first "." and the first "del", the date behind that;
 * for a professional the date is ten characters at most, for a company the rest of the note. Never
 * fails: without a "." before "del" the number starts with the note, without "del" it runs to
 * the end and the date is empty.
 */
MandateNote ParseMandateNote(const QString &note, CreditorKind kind);

} // namespace saldoro
