#include "common/number_text.h"
#include "invoice/amount_chain.h"

namespace saldoro {

using namespace Qt::StringLiterals;
using enum Amount;
using enum AmountRole;

namespace {

void leaveFee(AmountTexts &texts, Amount field)
{
    texts.showTyped(field);
    texts.show(Importo, DueVatBase(texts));
    texts.show(SoggettaRA, DueWithholdingBase(texts));
}

void leaveVatRate(AmountTexts &texts)
{
    // A text test: 0,00 counts as an amount that the user wants, unlike the withholding's.
    if (texts.text(ImportoIva).isEmpty() || texts.text(ImportoIva) == u"0")
        texts.show(ImportoIva, texts.share(Importo, AliquotaIva));
    texts.showRate(AliquotaIva);
}

void leaveWithholdingRate(AmountTexts &texts)
{
    if (LeadingNumber(texts.text(ImportoRA)) == 0.0)
        texts.show(ImportoRA, texts.share(SoggettaRA, AliquotaRA));
    texts.showRate(AliquotaRA);
}

void leaveProfessionalAmount(AmountTexts &texts, Amount field)
{
    switch (field) {
    case Prestazione:
    case Contributo:
    case CassaPrev:
        leaveFee(texts, field);
        return;
    case AliquotaIva:
        leaveVatRate(texts);
        break;
    case Importo:
    case ImportoIva:
    case AltriImporti:
    case TotaleFattura:
    case SoggettaRA:
        if (!StaysPlain(field))
            texts.showTyped(field);
        break;
    case AliquotaRA:
        leaveWithholdingRate(texts);
        texts.show(Netto, DueNet(texts));
        return;
    case ImportoRA:
        texts.showTyped(ImportoRA);
        texts.show(Netto, DueNet(texts));
        return;
    case Netto:
        texts.show(Netto, DueNet(texts));
        return;
    }
    texts.show(TotaleFattura, texts.dueTotal());
}

} // namespace

bool StaysPlain(Amount field)
{
    return field == AltriImporti || field == SoggettaRA;
}

Currency DueVatBase(const AmountTexts &texts)
{
    return texts.amount(Prestazione) + texts.amount(Contributo) + texts.amount(CassaPrev);
}

Currency DueWithholdingBase(const AmountTexts &texts)
{
    return texts.amount(Prestazione) + texts.amount(Contributo);
}

Currency DueNet(const AmountTexts &texts)
{
    return texts.amount(TotaleFattura) - texts.amount(ImportoRA);
}

const AmountChain &ProfessionalAmounts()
{
    static const QString rate = u"In percento, con il punto per i decimali"_s;
    static const AmountChain chain{
        {{Prestazione, u"Text4_0"_s, Typed, u"Im&porto Prestazione"_s,
          u"Compenso, con il punto per i decimali"_s, u"ImportoPrest"_s},
         {Contributo, u"Text4_1"_s, Typed, u"Contri&buto previdenziale 4%"_s,
          u"Importo del contributo, con il punto per i decimali"_s, u"Contributo"_s},
         {CassaPrev, u"Text4_2"_s, Typed, u"Cassa Pre&videnza 2%"_s,
          u"Importo dovuto alla cassa, con il punto per i decimali"_s, u"CassaPrev"_s},
         {Importo, u"Text2_0"_s, Derived, u"So&mma soggetta a Iva"_s,
          u"Prestazione, contributo e cassa; con il punto per i decimali"_s, u"Importo"_s},
         {AliquotaIva, u"Text2_1"_s, Rate, u"Ali&quota e importo IVA"_s, rate, u"Aliquota"_s},
         {ImportoIva, u"Text2_2"_s, Derived, QString(),
          u"Si calcola da sé solo se è vuoto; con il punto per i decimali"_s, u"ImportoIVA"_s},
         {AltriImporti, u"Text2_5"_s, Typed, u"Al&tri Importi"_s,
          u"Si aggiungono al totale; con la virgola per i decimali"_s, u"AltriImporti01"_s},
         {TotaleFattura, u"Text2_3"_s, Derived, u"Totale Fatt&ura"_s,
          u"Somma soggetta a IVA, IVA e altri importi; si ricalcola sempre"_s},
         {SoggettaRA, u"Text2_4"_s, Derived, u"Somma so&ggetta a R.A."_s,
          u"Prestazione e contributo; con la virgola per i decimali"_s, QString(),
          Reach::OnRequest},
         {AliquotaRA, u"Text5_0"_s, Rate, u"Aliquota e importo R.A."_s, rate, u"AliquotaRA"_s},
         {ImportoRA, u"Text5_1"_s, Derived, QString(),
          u"Si calcola da sé se è vuoto o zero; con il punto per i decimali"_s, u"ImportoRA"_s},
         {Netto, u"Text5_2"_s, Derived, u"Netto"_s,
          u"Totale della fattura meno la ritenuta d'acconto; si ricalcola sempre"_s}},
        leaveProfessionalAmount};
    return chain;
}

} // namespace saldoro
