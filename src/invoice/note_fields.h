#pragma once

#include "invoice/payment_record.h"

#include <QWidget>

namespace saldoro {

class DateBox;
class EntryField;
class FieldNavigation;
class NoteBox;

/** Number and date of a payment's mandate, and the note of the payment. */
class NoteFields : public QWidget
{
public:
    /** @p navigation must outlive the block. */
    NoteFields(FieldNavigation &navigation, QWidget *parent);

    DateBox &mandateDate() const { return *m_mandateDate; }

    void showRecord(const PaymentRecord &record);
    void readInto(PaymentRecord &record) const;

private:
    EntryField *m_mandate;
    DateBox *m_mandateDate;
    NoteBox *m_note;
};

} // namespace saldoro
