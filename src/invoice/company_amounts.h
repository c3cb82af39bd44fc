#pragma once

#include "invoice/amount_chain.h"

namespace saldoro {

/**
 * Amounts of a company's invoice. VAT is computed anew whenever the rate is left, and only then;
 * a later change of the taxable amount moves the total alone. A typed total stays as typed.
 */
class CompanyAmounts : public AmountChain
{
public:
    /** Positions of the fields; the object names are Text2_0 to Text2_3. */
    enum Position
    {
        Importo,
        AliquotaIva,
        ImportoIva,
        TotaleFattura
    };

    CompanyAmounts();

    void left(int position) override;
    CreditorKind kind() const override { return CreditorKind::Company; }
    int totalField() const override { return TotaleFattura; }
    const QList<StoredAmount> &storedAmounts() const override;
    void fillDerived(const QList<Currency> &stored) override;

private:
    void showTotal();
};

} // namespace saldoro
