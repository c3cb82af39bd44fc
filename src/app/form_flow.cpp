#include "app/form_flow.h"

#include "common/ending.h"
#include "common/form_helpers.h"
#include "invoice/frm_aziende.h"
#include "invoice/frm_nuova_fattura.h"
#include "invoice/frm_professionisti.h"
#include "overview/frm_principale.h"

#include <QWindow>

#include <algorithm>

namespace saldoro {

namespace {

std::unique_ptr<InvoiceForm> makeInvoiceForm(CreditorKind kind, ProgramValues &values,
                                             const TextTable &overview)
{
    if (kind == CreditorKind::Company)
        return std::make_unique<FrmAziende>(values, overview);
    return std::make_unique<FrmProfessionisti>(values, overview);
}

/** A click on @p owner would otherwise bring it in front, out of use as it is. */
void keepAbove(const QWidget &form, const QWidget &owner)
{
    form.winId(); // makes the window that the window system knows
    form.windowHandle()->setTransientParent(owner.windowHandle());
}

/** Gives up a form that is in the midst of its own signal. */
template <typename Form>
void releaseLater(std::unique_ptr<Form> &form)
{
    form.release()->deleteLater();
}

} // namespace

FormFlow::FormFlow(ProgramValues &values)
    : m_values(values)
{
}

FormFlow::~FormFlow() = default;

InvoiceForm *FormFlow::invoiceForm(CreditorKind kind) const
{
    return m_invoices.at(static_cast<std::size_t>(kind)).get();
}

std::unique_ptr<InvoiceForm> &FormFlow::invoiceSlot(CreditorKind kind)
{
    return m_invoices.at(static_cast<std::size_t>(kind));
}

void FormFlow::showMainForm()
{
    if (!m_main)
        makeMainForm();
    if (!m_main->isLoaded())
        m_main->load();
    BringToFront(*m_main);
}

void FormFlow::makeMainForm()
{
    m_main = std::make_unique<FrmPrincipale>(m_values);
    connect(m_main.get(), &FrmPrincipale::nuovoRequested, this, &FormFlow::showChooser);
    connect(m_main.get(), &FrmPrincipale::openPaymentRequested, this, &FormFlow::showInvoiceForm);
    // Queued: the window system is still busy with the form that it has made the active one.
    connect(m_main.get(), &FrmPrincipale::activatedOutOfUse, this, &FormFlow::raiseChooser,
            Qt::QueuedConnection);
    connect(m_main.get(), &FrmPrincipale::unloaded, this, &FormFlow::announceLastForm);
}

void FormFlow::showChooser()
{
    m_main->setInUse(false);
    if (!m_chooser) {
        m_chooser = std::make_unique<FrmNuovaFattura>();
        connect(m_chooser.get(), &FrmNuovaFattura::continued, this, &FormFlow::showInvoiceForm);
        connect(m_chooser.get(), &FrmNuovaFattura::finished, this, &FormFlow::chooserFinished);
        keepAbove(*m_chooser, *m_main);
    }
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
    releaseLater(m_chooser);
    m_main->setInUse(true);
}

void FormFlow::showInvoiceForm(CreditorKind kind)
{
    auto &slot = invoiceSlot(kind);
    if (!slot) {
        auto form = makeInvoiceForm(kind, m_values, m_main->overviewTable());
        form->load();
        connect(form.get(), &InvoiceForm::unloaded, this,
                [this, kind] { invoiceFormUnloaded(kind); });
        slot = std::move(form);
    }
    BringToFront(*slot);
}

/** What the form has saved shows by a reload of the main form, closed or not. */
void FormFlow::invoiceFormUnloaded(CreditorKind kind)
{
    auto &slot = invoiceSlot(kind);
    slot->hide(); // not to be seen while the documents of the main form are written
    releaseLater(slot);
    if (IsEnding())
        return;
    m_main->reload();
    raiseChooser();
}

void FormFlow::announceLastForm()
{
    const bool invoiceOpen = std::any_of(m_invoices.begin(), m_invoices.end(),
                                         [](const auto &form) { return form != nullptr; });
    if (!invoiceOpen && !m_chooser && !IsEnding())
        emit lastFormClosed();
}

} // namespace saldoro
