#include "invoice/amount_chain.h"

namespace saldoro {

using namespace Qt::StringLiterals;
using enum Amount;
using enum AmountRole;

namespace {

void leaveCompanyAmount(AmountTexts &texts, Amount field)
{
    if (field == TotaleFattura)
        return; // it stays as typed, in plain form if need be
    if (field == AliquotaIva) {
        texts.show(ImportoIva, texts.share(Importo, AliquotaIva));
        texts.showRate(AliquotaIva);
    } else {
        texts.showTyped(field);
    }
    texts.show(TotaleFattura, texts.dueTotal());
}

} // namespace

const AmountChain &CompanyAmounts()
{
    static const AmountChain chain{
        {{Importo, u"Text2_0"_s, Typed, u"Im&porto"_s, u"Imponibile, con il punto per i decimali"_s,
          u"Importo"_s},
         {AliquotaIva, u"Text2_1"_s, Rate, u"Ali&quota IVA"_s,
          u"In percento, con il punto per i decimali; lasciandola si ricalcola l'IVA"_s,
          u"Aliquota"_s},
         {ImportoIva, u"Text2_2"_s, Derived, u"Importo I&VA"_s,
          u"Si calcola dall'aliquota e si può correggere, con il punto per i decimali"_s,
          u"ImportoIVA"_s},
         {TotaleFattura, u"Text2_3"_s, Derived, u"Totale Fatt&ura"_s,
          u"Importo e IVA; scritto a mano si confronta, ma non si salva"_s, QString(),
          Reach::OnRequest}},
        leaveCompanyAmount};
    return chain;
}

} // namespace saldoro
