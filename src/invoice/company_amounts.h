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
    /** Positions of the fields. */
    enum Position
    {
        Importo,
        AliquotaIva,
        ImportoIva,
        TotaleFattura
    };

    explicit CompanyAmounts(AmountTexts &texts);

    void left(int position) override;
    int totalField() const override { return TotaleFattura; }

protected:
    void showComputed(const QList<Currency> &stored) override;

private:
    void showTotal();
};

} // namespace saldoro
