#include "invoice/professional_amounts.h"

#include "common/number_text.h"

namespace saldoro {

using namespace Qt::StringLiterals;

ProfessionalAmounts::ProfessionalAmounts()
    : AmountChain({{u"Text4_0"_s, AmountRole::Typed},
                   {u"Text4_1"_s, AmountRole::Typed},
                   {u"Text4_2"_s, AmountRole::Typed},
                   {u"Text2_0"_s, AmountRole::Derived},
                   {u"Text2_1"_s, AmountRole::Rate},
                   {u"Text2_2"_s, AmountRole::Derived},
                   {u"Text2_5"_s, AmountRole::Typed},
                   {u"Text2_3"_s, AmountRole::Derived},
                   {u"Text2_4"_s, AmountRole::Derived},
                   {u"Text5_0"_s, AmountRole::Rate},
                   {u"Text5_1"_s, AmountRole::Derived},
                   {u"Text5_2"_s, AmountRole::Derived}})
{
}

void ProfessionalAmounts::left(int position)
{
    switch (static_cast<Position>(position)) {
    case Prestazione:
    case Contributo:
    case CassaPrev:
        leftFees(position);
        return;
    case SoggettaIva:
    case AliquotaIva:
    case ImportoIva:
    case AltriImporti:
    case TotaleFattura:
    case SoggettaRA:
        leftVat(position);
        return;
    case AliquotaRA:
    case ImportoRA:
    case Netto:
        leftWithholding(position);
        return;
    }
    throwNoSuchField();
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

const QList<StoredAmount> &ProfessionalAmounts::storedAmounts() const
{
    static const QList<StoredAmount> columns{
        {u"Aliquota"_s, AliquotaIva},       {u"AliquotaRA"_s, AliquotaRA},
        {u"Importo"_s, SoggettaIva},        {u"ImportoIVA"_s, ImportoIva},
        {u"ImportoPrest"_s, Prestazione},   {u"Contributo"_s, Contributo},
        {u"CassaPrev"_s, CassaPrev},        {u"ImportoRA"_s, ImportoRA},
        {u"AltriImporti01"_s, AltriImporti}};
    return columns;
}

void ProfessionalAmounts::fillDerived(const QList<Currency> &stored)
{
    const Currency total = stored[SoggettaIva] + stored[ImportoIva] + stored[AltriImporti];
    show(TotaleFattura, total);
    show(Netto, total - stored[ImportoRA]);
    show(SoggettaRA, amount(Prestazione) + amount(Contributo));
}

} // namespace saldoro
