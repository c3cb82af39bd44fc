#include "invoice/professional_amounts.h"

#include "common/number_text.h"

namespace saldoro {

using namespace Qt::StringLiterals;

namespace {

QList<AmountField> feeNoteFields()
{
    const QString vat = u"Aliquota in percento; l'importo si calcola da sé solo se è vuoto"_s;
    const QString withholding =
        u"Aliquota in percento; l'importo si calcola da sé se è vuoto o zero"_s;
    using enum AmountRole;
    return {
        {u"Text4_0"_s, Typed, u"ImportoPrest"_s, u"Im&porto Prestazione"_s,
         u"Compenso, con il punto per i decimali"_s},
        {u"Text4_1"_s, Typed, u"Contributo"_s, u"Contri&buto previdenziale 4%"_s,
         u"Importo del contributo"_s},
        {u"Text4_2"_s, Typed, u"CassaPrev"_s, u"Cassa Pre&videnza 2%"_s,
         u"Importo dovuto alla cassa"_s},
        {u"Text2_0"_s, Derived, u"Importo"_s, u"So&mma soggetta a Iva"_s,
         u"Prestazione, contributo e cassa"_s},
        {u"Text2_1"_s, Rate, u"Aliquota"_s, u"Ali&quota e importo IVA"_s, vat},
        {u"Text2_2"_s, Derived, u"ImportoIVA"_s, {}, vat},
        {u"Text2_5"_s, Typed, u"AltriImporti01"_s, u"Al&tri Importi"_s,
         u"Importi che si aggiungono al totale"_s},
        {u"Text2_3"_s,
         Derived,
         {},
         u"Totale Fatt&ura"_s,
         u"Somma soggetta a IVA, IVA e altri importi"_s},
        {u"Text2_4"_s,
         Derived,
         {},
         u"Somma so&ggetta a R.A."_s,
         u"Prestazione e contributo"_s,
         Reach::OnRequest},
        {u"Text5_0"_s, Rate, u"AliquotaRA"_s, u"Aliquota e importo R.A."_s, withholding},
        {u"Text5_1"_s, Derived, u"ImportoRA"_s, {}, withholding},
        {u"Text5_2"_s,
         Derived,
         {},
         u"Netto"_s,
         u"Totale della fattura meno la ritenuta d'acconto"_s},
    };
}

} // namespace

ProfessionalAmounts::ProfessionalAmounts(AmountTexts &texts)
    : AmountChain(feeNoteFields(), texts)
{
}

void ProfessionalAmounts::left(int position)
{
    if (position <= CassaPrev)
        leftFees(position);
    else if (position <= SoggettaRA)
        leftVat(position);
    else
        leftWithholding(position);
}

void ProfessionalAmounts::leftFees(int position)
{
    showTyped(position);
    show(SoggettaIva, amount(Prestazione) + amount(Contributo) + amount(CassaPrev));
    show(SoggettaRA, amount(Prestazione) + amount(Contributo));
}

void ProfessionalAmounts::leftVat(int position)
{
    if (position == AliquotaIva) {
        // A text test: 0,00 counts as an amount that the user wants, unlike the withholding's.
        if (text(ImportoIva).isEmpty() || text(ImportoIva) == u"0")
            show(ImportoIva, share(SoggettaIva, AliquotaIva));
        showRate(AliquotaIva);
    } else if (position != SoggettaRA && position != AltriImporti) {
        // Those two keep the plain form that they were typed in.
        showTyped(position);
    }
    show(TotaleFattura, amount(SoggettaIva) + amount(ImportoIva) + amount(AltriImporti));
}

void ProfessionalAmounts::leftWithholding(int position)
{
    if (position == AliquotaRA) {
        if (LeadingNumber(text(ImportoRA)) == 0.0)
            show(ImportoRA, share(SoggettaRA, AliquotaRA));
        showRate(AliquotaRA);
    } else if (position == ImportoRA) {
        showTyped(ImportoRA);
    }
    show(Netto, amount(TotaleFattura) - amount(ImportoRA));
}

void ProfessionalAmounts::showComputed(const QList<Currency> &stored)
{
    const Currency total = stored[SoggettaIva] + stored[ImportoIva] + stored[AltriImporti];
    show(TotaleFattura, total);
    show(Netto, total - stored[ImportoRA]);
    show(SoggettaRA, amount(Prestazione) + amount(Contributo));
}

} // namespace saldoro
