#pragma once

#include "invoice/contractor_and_principals.h"
#include "invoice/invoice_form.h"

namespace saldoro {

/** The form of a payment to a company; a new one starts with the contractor as creditor. */
class FrmAziende : public InvoiceForm
{
    Q_OBJECT

public:
    /** @p values and @p overview, the table of cost items, must outlive the form. */
    FrmAziende(ProgramValues &values, const TextTable &overview);

protected:
    QString startingCreditor() override;

private:
    QPushButton *m_principals;
    Contractor m_contractor;
};

} // namespace saldoro
