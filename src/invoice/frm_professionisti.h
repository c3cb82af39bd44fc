#pragma once

#include "invoice/invoice_form.h"

namespace saldoro {

/** The form of a payment to a professional. */
class FrmProfessionisti : public InvoiceForm
{
    Q_OBJECT

public:
    /** @p values and @p overview, the table of cost items, must outlive the form. */
    FrmProfessionisti(ProgramValues &values, const TextTable &overview);
};

} // namespace saldoro
