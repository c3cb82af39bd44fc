#pragma once

#include "common/creditor_kind.h"
#include "common/program_values.h"
#include "controls/manual_window.h"

#include <QObject>

#include <map>
#include <memory>

namespace saldoro {

class FrmNuovaFattura;
class FrmPrincipale;
class InvoiceForm;

/**
 * Owns the forms and ties them together: which form opens on which signal, and what happens to the
 * main form when another one closes. At most one form of each kind is open; asking for an open one
 * brings it to the front as it is. The main form takes itself out of use for the chooser,
 * and is put back here. F1 shows the manual at the chapter of the form.
 */
class FormFlow : public QObject
{
    Q_OBJECT

public:
    /** Makes the main form, which its reopen() shows. @p values must outlive the object. */
    explicit FormFlow(ProgramValues &values);
    ~FormFlow() override;

    /** The forms; null for one that is not open. The main form is always there. */
    FrmPrincipale *mainForm() const { return m_main.get(); }
    FrmNuovaFattura *chooser() const { return m_chooser.get(); }
    InvoiceForm *invoiceForm(CreditorKind kind);

private:
    void showChooser();
    void raiseChooser();
    void chooserFinished();
    void showInvoiceForm(CreditorKind kind, bool isNew);
    void tellListed();
    void invoiceFormUnloaded(CreditorKind kind);

    ProgramValues &m_values;
    std::unique_ptr<FrmPrincipale> m_main;
    std::unique_ptr<FrmNuovaFattura> m_chooser;
    std::map<CreditorKind, std::unique_ptr<InvoiceForm>> m_invoices;
    ManualWindow m_manual;
};

} // namespace saldoro
