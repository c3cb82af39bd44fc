#include "invoice/company_amounts.h"

namespace saldoro {

CompanyAmounts::CompanyAmounts()
    : AmountChain({{QStringLiteral("Text2_0"), AmountRole::Typed},
                   {QStringLiteral("Text2_1"), AmountRole::Rate},
                   {QStringLiteral("Text2_2"), AmountRole::Derived},
                   {QStringLiteral("Text2_3"), AmountRole::Derived}})
{
}

void CompanyAmounts::left(int position)
{
    switch (static_cast<Position>(position)) {
    case Importo:
    case ImportoIva:
        showTyped(position);
        showTotal();
        return;
    case AliquotaIva:
        show(ImportoIva, share(Importo, AliquotaIva));
        showTotal();
        showRate(AliquotaIva);
        return;
    case TotaleFattura:
        return; // stays as it was typed, plain form included
    }
    field(position); // out of range: the bounds error
}

void CompanyAmounts::showTotal()
{
    show(TotaleFattura, amount(Importo) + amount(ImportoIva));
}

const QList<StoredAmount> &CompanyAmounts::storedAmounts() const
{
    static const QList<StoredAmount> columns{{QStringLiteral("Aliquota"), AliquotaIva},
                                             {QStringLiteral("Importo"), Importo},
                                             {QStringLiteral("ImportoIVA"), ImportoIva}};
    return columns;
}

void CompanyAmounts::fillDerived(const QList<Currency> &stored)
{
    show(TotaleFattura, stored[Importo] + stored[ImportoIva]);
}

} // namespace saldoro
