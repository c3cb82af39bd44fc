#include "invoice/note_fields.h"

#include "controls/date_box.h"
#include "invoice/form_fields.h"
#include "invoice/note_box.h"

#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>

namespace saldoro {

using namespace Qt::StringLiterals;

NoteFields::NoteFields(FormFields &fields, QWidget *parent)
    : QWidget(parent)
    , m_mandate(new QLineEdit(this))
    , m_mandateDate(new DateBox(this))
    , m_note(new NoteBox(this))
{
    Describe(*m_mandate, u"Mandato"_s, u"Mandato nr."_s, u"Numero del mandato di pagamento"_s);
    Describe(*m_mandateDate, u"MandatoDell"_s, u"Data del mandato"_s,
             u"Data del mandato di pagamento, giorno/mese/anno"_s);
    Describe(*m_note, u"Memo"_s, u"Note"_s, u"Note libere; Invio va a capo, Tab passa oltre"_s);
    fields.addLine(*m_mandate);
    fields.addDate(*m_mandateDate);

    auto *grid = new QGridLayout(this);
    grid->setContentsMargins({});
    grid->addWidget(LabelFor(*m_mandate, u"Mandat&o nr."_s), 0, 0);
    grid->addWidget(m_mandate, 0, 1);
    grid->addWidget(m_mandateDate, 0, 2);
    grid->addWidget(LabelFor(*m_note, u"&Note"_s), 1, 0, Qt::AlignTop);
    grid->addWidget(m_note, 1, 1, 1, 2);
    grid->setColumnStretch(1, 1);
}

void NoteFields::showRecord(const PaymentRecord &record)
{
    m_mandate->setText(record.mandato);
    m_mandateDate->setDateText(record.mandatoDell);
    m_note->showNote(record.memo);
}

void NoteFields::readInto(PaymentRecord &record) const
{
    record.mandato = m_mandate->text();
    record.mandatoDell = m_mandateDate->text();
    record.memo = m_note->note();
}

} // namespace saldoro
