#include "invoice/company_amounts.h"

namespace saldoro {

using namespace Qt::StringLiterals;

CompanyAmounts::CompanyAmounts()
    : AmountChain({{u"Text2_0"_s, AmountRole::Typed},
                   {u"Text2_1"_s, AmountRole::Rate},
                   {u"Text2_2"_s, AmountRole::Derived},
                   {u"Text2_3"_s, AmountRole::Derived}})
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
    throwNoSuchField();
}

void CompanyAmounts::showTotal()
{
    show(TotaleFattura, amount(Importo) + amount(ImportoIva));
}

const QList<StoredAmount> &CompanyAmounts::storedAmounts() const
{
    static const QList<StoredAmount> columns{
        {u"Aliquota"_s, AliquotaIva}, {u"Importo"_s, Importo}, {u"ImportoIVA"_s, ImportoIva}};
    return columns;
}

void CompanyAmounts::fillDerived(const QList<Currency> &stored)
{
    show(TotaleFattura, stored[Importo] + stored[ImportoIva]);
}

} // namespace saldoro
