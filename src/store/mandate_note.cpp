#include "store/mandate_note.h"

#include "common/characters.h"
#include "common/date_text.h"
#include "store/code_map.h"
#include "store/internal_codes.h"

namespace saldoro {

using namespace Qt::StringLiterals;

QString MandateKeyStart(const QString &notes)
{
    return notes + u'_';
}

QString VoceMandato(const ProgramValues &values, qint32 paymentNumber)
{
    return MandateKeyStart(CodiceEsterno(values, InternalCode::MandateNotes)) +
           QString::number(paymentNumber);
}

QString MandateDescription(qint32 paymentNumber, const QString &creditore)
{
    return u"Pag. N."_s + QString::number(paymentNumber) + u" - "_s + creditore;
}

QString ComposeMandateNote(const QString &mandato, const QString &mandatoDell)
{
    return u"Mandato nr."_s + mandato + u" del "_s + mandatoDell;
}

MandateNote ParseMandateNote(const QString &note, CreditorKind kind)
{
    const qsizetype word = note.indexOf(u"del");
    const qsizetype end = word < 0 ? note.size() : word;
    const qsizetype point = note.indexOf(u'.');
    const qsizetype start = point >= 0 && point < end ? point + 1 : 0;

    MandateNote result;
    result.mandato = note.mid(start, end - start).trimmed();
    if (word < 0)
        return result;
    // The professional's date skips one character more, the blank behind "del".
    if (kind == CreditorKind::Professional)
        result.mandatoDell = LeftCharacters(note.mid(word + 4), EmptyDateText.size()).trimmed();
    else
        result.mandatoDell = note.mid(word + 3).trimmed();
    return result;
}

} // namespace saldoro
