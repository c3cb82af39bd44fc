#include "app/form_flow.h"

#include "common/ending.h"
#include "controls/window_placement.h"
#include "invoice/frm_nuova_fattura.h"
#include "invoice/invoice_form.h"
#include "overview/frm_principale.h"

namespace saldoro {

using namespace Qt::StringLiterals;

FormFlow::FormFlow(ProgramValues &values)
    : m_values(values)
    , m_main(std::make_unique<FrmPrincipale>(values))
{
    connect(m_main.get(), &FrmPrincipale::nuovoRequested, this, &FormFlow::showChooser);
    connect(m_main.get(), &FrmPrincipale::openPaymentRequested, this,
            [this](CreditorKind kind) { showInvoiceForm(kind, false); });
    connect(m_main.get(), &FrmPrincipale::loaded, this, &FormFlow::tellListed);
    // Queued: the window system is still busy with the form that it has made the active one.
    connect(m_main.get(), &FrmPrincipale::activatedOutOfUse, this, &FormFlow::raiseChooser,
            Qt::QueuedConnection);
    m_manual.offerIn(*m_main, ManualChapter::MainScreen);
}

FormFlow::~FormFlow() = default;

InvoiceForm *FormFlow::invoiceForm(CreditorKind kind)
{
    return m_invoices[kind].get();
}

void FormFlow::showChooser()
{
    m_chooser = std::make_unique<FrmNuovaFattura>(m_main.get());
    connect(m_chooser.get(), &FrmNuovaFattura::continued, this,
            [this](CreditorKind kind) { showInvoiceForm(kind, true); });
    m_manual.offerIn(*m_chooser, ManualChapter::MainScreen);
    connect(m_chooser.get(), &FrmNuovaFattura::finished, this, &FormFlow::chooserFinished,
            Qt::SingleShotConnection); // two presses may wait for it
    raiseChooser();
}

/** Keys for the main form would go nowhere while it is out of use. */
void FormFlow::raiseChooser()
{
    if (m_chooser)
        BringToFront(*m_chooser);
}

void FormFlow::chooserFinished()
{
    m_chooser.release()->deleteLater(); // it is still sending its own signal
    m_main->putBackInUse();
}

void FormFlow::showInvoiceForm(CreditorKind kind, bool isNew)
{
    auto &shown = m_invoices[kind];
    if (!shown) {
        auto form = std::make_unique<InvoiceForm>(kind, m_values, m_main->overviewTable());
        form->load();
        if (isNew)
            form->setMeantNew();
        m_manual.offerIn(*form, kind == CreditorKind::Company ? ManualChapter::CompanyPayment
                                                              : ManualChapter::ProfessionalPayment);
        connect(form.get(), &InvoiceForm::unloaded, this,
                [this, kind] { invoiceFormUnloaded(kind); });
        shown = std::move(form);
    }
    shown->setAskedNumber(m_values.CurrentPaymentNumber);
    BringToFront(*shown);
}

/** An open form's payment may have been deleted, or its number taken, meanwhile. */
void FormFlow::tellListed()
{
    for (const auto &[kind, form] : m_invoices) {
        if (form)
            form->setListed(m_main->lists(form->paymentNumber()));
    }
}

/** What the form has saved shows by a reload of the main form, closed or not. */
void FormFlow::invoiceFormUnloaded(CreditorKind kind)
{
    auto &form = m_invoices[kind];
    form->hide(); // not to be seen while the documents of the main form are written
    form.release()->deleteLater();
    if (IsEnding())
        return;
    m_main->reopen();
}

} // namespace saldoro
