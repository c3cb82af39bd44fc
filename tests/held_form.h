#pragma once

#include "invoice/allocation_block.h"
#include "invoice/company_amounts.h"
#include "invoice/payment_record.h"
#include "invoice/professional_amounts.h"

#include <memory>

namespace saldoro {

/** A payment as an invoice form holds it, without widgets. */
struct HeldForm
{
    explicit HeldForm(CreditorKind kind)
    {
        if (kind == CreditorKind::Company)
            amounts = std::make_unique<CompanyAmounts>();
        else
            amounts = std::make_unique<ProfessionalAmounts>();
        block.prepareGrid();
    }

    PaymentRecord record;
    std::unique_ptr<AmountChain> amounts;
    TextTable overview{5};
    TextTable grid;
    AllocationBlock block{overview, grid};
};

} // namespace saldoro
