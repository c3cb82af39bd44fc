#include "invoice/company_amounts.h"

namespace saldoro {

using namespace Qt::StringLiterals;
using enum AmountRole;

CompanyAmounts::CompanyAmounts(AmountTexts &texts)
    : AmountChain(
          {{u"Text2_0"_s, Typed, u"Importo"_s, u"Im&porto"_s,
            u"Imponibile, con il punto per i decimali"_s},
           {u"Text2_1"_s, Rate, u"Aliquota"_s, u"Ali&quota IVA"_s,
            u"In percento; lasciandola si ricalcola l'IVA"_s},
           {u"Text2_2"_s, Derived, u"ImportoIVA"_s, u"Importo I&VA"_s,
            u"Si calcola dall'aliquota e si può correggere"_s},
           {u"Text2_3"_s, Derived, {}, u"Totale Fatt&ura"_s, u"Importo e IVA"_s, Reach::OnRequest}},
          texts)
{
}

void CompanyAmounts::left(int position)
{
    switch (position) {
    case Importo:
    case ImportoIva:
        showTyped(position);
        showTotal();
        break;
    case AliquotaIva:
        show(ImportoIva, share(Importo, AliquotaIva));
        showTotal();
        showRate(AliquotaIva);
        break;
    default: // the total stays as it was typed, plain form included
        break;
    }
}

void CompanyAmounts::showTotal()
{
    show(TotaleFattura, amount(Importo) + amount(ImportoIva));
}

void CompanyAmounts::showComputed(const QList<Currency> &stored)
{
    show(TotaleFattura, stored[Importo] + stored[ImportoIva]);
}

} // namespace saldoro
