#pragma once

#include "common/program_values.h"
#include "invoice/amount_fields.h"
#include "invoice/form_fields.h"
#include "invoice/payment_record.h"

#include <QWidget>

class QLabel;
class QPushButton;

namespace saldoro {

class AllocationFrame;
class CreditorFields;
class NoteFields;
class TextTable;

/** Where an invoice form has room for mandate and note. */
enum class NotesPlace
{
    BelowAmounts,
    AboveAllocations
};

/** What tells the two invoice forms apart at sight. */
struct InvoiceFormLook
{
    CreditorKind kind = CreditorKind::Company;
    QString title;
    QString dateBoxName;
    QString allocationCaption;
    NotesPlace notesPlace = NotesPlace::BelowAmounts;
};

/**
 * The form of one payment: creditor, invoice, amounts, mandate, note and allocations. It shows the
 * payment that is current when it is made, whatever becomes current meanwhile. "Conferma" saves and
 * closes; every other way of closing saves nothing.
 *
 * Errors of the databases and of the arithmetic pass through load() and through the event loop.
 */
class InvoiceForm : public QWidget
{
    Q_OBJECT

public:
    /** Fills the form from the databases, centres it and sets the first focus; to be called once,
     *  before it is shown. */
    void load();

    qint32 paymentNumber() const { return m_payment.number; }

signals:
    /** The form has closed; sent once. Not sent while the program is ending. */
    void unloaded();

protected:
    /** @p values and @p overview, the table of cost items, must outlive the form. */
    InvoiceForm(ProgramValues &values, const TextTable &overview, const InvoiceFormLook &look);

    const ProgramValues &values() const { return m_values; }
    CreditorFields &creditorFields() { return *m_creditor; }

    /** The creditor that a new payment starts with. */
    virtual QString startingCreditor() { return {}; }

    void closeEvent(QCloseEvent *event) override;

private:
    void arrange(NotesPlace notesPlace);
    void addPage();
    QLayout *makeButtons();
    void followCreditor();
    void loadPayment();
    void confirm();

    ProgramValues &m_values;
    PaymentRecord m_payment;
    FormFields m_fields;
    QWidget *m_page;
    QLabel *m_number;
    CreditorFields *m_creditor;
    AmountFields *m_amounts;
    NoteFields *m_notes;
    AllocationFrame *m_allocation;
    QPushButton *m_confirm = nullptr;
    bool m_open = false;
};

} // namespace saldoro
