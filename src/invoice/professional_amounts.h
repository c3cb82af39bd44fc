#pragma once

#include "invoice/amount_chain.h"

namespace saldoro {

/**
 * Amounts of a professional's fee note. Nothing is multiplied by 4 % or 2 %: both contributions
 * are typed. VAT and withholding follow from their rates only when their own field is empty: the
 * VAT amount when its text is empty or "0", the withholding whenever it reads as zero.
 */
class ProfessionalAmounts : public AmountChain
{
public:
    /** Positions of the fields. */
    enum Position
    {
        Prestazione,
        Contributo,
        CassaPrev,
        SoggettaIva, ///< base for VAT
        AliquotaIva,
        ImportoIva,
        AltriImporti,
        TotaleFattura,
        SoggettaRA, ///< base for the withholding
        AliquotaRA,
        ImportoRA,
        Netto
    };

    explicit ProfessionalAmounts(AmountTexts &texts);

    void left(int position) override;
    int totalField() const override { return TotaleFattura; }

protected:
    void showComputed(const QList<Currency> &stored) override;

private:
    void leftFees(int position);
    void leftVat(int position);
    void leftWithholding(int position);
};

} // namespace saldoro
