#pragma once

#include "common/creditor_kind.h"
#include "common/program_values.h"

#include <QObject>

#include <array>
#include <memory>

class QWidget;

namespace saldoro {

class FrmNuovaFattura;
class FrmPrincipale;
class InvoiceForm;

/**
 * Owns the forms and ties them together: which form opens on whose signal, what happens to the
 * main form when another one closes, and when nothing is open any more. At most one form of each
 * kind is open; asking for an open one brings it to the front as it is.
 */
class FormFlow : public QObject
{
    Q_OBJECT

public:
    /** @p values must outlive the object. */
    explicit FormFlow(ProgramValues &values);
    ~FormFlow() override;

    /** Loads and shows the main form, or brings it to the front when it is open. Errors of its
     *  load pass through. */
    void showMainForm();

    /** The forms; none that is not open, save the main form, which once made stays. */
    FrmPrincipale *mainForm() const { return m_main.get(); }
    FrmNuovaFattura *chooser() const { return m_chooser.get(); }
    InvoiceForm *invoiceForm(CreditorKind kind) const;

signals:
    /** No form is open any more. */
    void lastFormClosed();

private:
    void makeMainForm();
    void showChooser();
    void raiseChooser();
    void chooserFinished();
    void showInvoiceForm(CreditorKind kind);
    void invoiceFormUnloaded(CreditorKind kind);
    void announceLastForm();
    std::unique_ptr<InvoiceForm> &invoiceSlot(CreditorKind kind);

    ProgramValues &m_values;
    std::unique_ptr<FrmPrincipale> m_main;
    std::unique_ptr<FrmNuovaFattura> m_chooser;
    std::array<std::unique_ptr<InvoiceForm>, 2> m_invoices; ///< by CreditorKind
};

} // namespace saldoro
