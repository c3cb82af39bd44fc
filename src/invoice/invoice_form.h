#pragma once

#include "common/program_values.h"
#include "invoice/field_navigation.h"
#include "invoice/invoice_notices.h"
#include "store/contractor_and_principals.h"

#include <QWidget>

class QLabel;
class QPushButton;

namespace saldoro {

class AllocationFrame;
class AmountFields;
class CreditorFields;
class NoteFields;
class NoticeStrip;

/**
 * The form of one payment, to a company (FrmAziende) or to a professional (FrmProfessionisti):
 * creditor, invoice, amounts, mandate, note and allocations. It shows the payment that is current
 * when it is made, also when another becomes current; a new payment to a company starts with the
 * contractor as creditor. "Conferma" saves and closes; every other way of closing saves nothing.
 *
 * Errors of the databases and of the arithmetic pass through load() and through the event loop.
 */
class InvoiceForm : public QWidget
{
    Q_OBJECT

public:
    /** @p values and @p overview, the table of cost items, must outlive the form. */
    InvoiceForm(CreditorKind kind, ProgramValues &values, const TextTable &overview);

    /** Fills the form from the databases, centres it and sets the first focus; to be called once,
     *  before it is shown. */
    void load();

    /** Tells the form that "Nuovo" has opened it; only the notices go by that. */
    void setMeantNew() { m_loaded.isMeantNew = true; }
    /** Tells the form which payment was asked for when it came to the front, which may be another
     *  than its own; only the notices go by that. */
    void setAskedNumber(qint32 number);
    /** Tells the form whether the main screen, which has read the payments again, lists its number;
     *  only the notices go by that. */
    void setListed(bool isListed);

    qint32 paymentNumber() const { return m_loaded.shown.number; }

signals:
    /** The form has closed; sent once. Not sent while the program is ending. */
    void unloaded();

protected:
    void closeEvent(QCloseEvent *event) override;

private:
    bool isCompany() const { return m_loaded.shown.kind == CreditorKind::Company; }
    void addCreditorLists();
    void arrange();
    void addPage();
    QLayout *makeButtons();
    void loadPayment();
    void savePayment();
    PaymentRecord shown() const;
    void followContent();
    Notices notices() const;

    ProgramValues &m_values;
    /** The payment as it was loaded, and what else the notices have to know of the past. */
    InvoiceState m_loaded;
    Contractor m_contractor;
    FieldNavigation m_navigation;
    QWidget *m_page;
    QLabel *m_number;
    CreditorFields *m_creditor;
    AmountFields *m_amounts;
    NoteFields *m_notes;
    AllocationFrame *m_allocation;
    QPushButton *m_principals = nullptr;
    NoticeStrip *m_strip;
    bool m_open = false;
};

} // namespace saldoro
