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
    /** Positions of the fields, with their object names. */
    enum Position
    {
        Prestazione,   ///< Text4_0, fee
        Contributo,    ///< Text4_1, social contribution
        CassaPrev,     ///< Text4_2, pension-fund contribution
        SoggettaIva,   ///< Text2_0, base for VAT
        AliquotaIva,   ///< Text2_1
        ImportoIva,    ///< Text2_2
        AltriImporti,  ///< Text2_5
        TotaleFattura, ///< Text2_3
        SoggettaRA,    ///< Text2_4, base for the withholding
        AliquotaRA,    ///< Text5_0
        ImportoRA,     ///< Text5_1
        Netto          ///< Text5_2
    };

    ProfessionalAmounts();

    void left(int position) override;
    CreditorKind kind() const override { return CreditorKind::Professional; }
    int totalField() const override { return TotaleFattura; }
    const QList<StoredAmount> &storedAmounts() const override;
    void fillDerived(const QList<Currency> &stored) override;

private:
    void leftFees(int position);
    void leftVat(int position);
    void leftWithholding(int position);
};

} // namespace saldoro
