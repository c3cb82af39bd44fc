#include "invoice/frm_professionisti.h"

#include "invoice/creditor_lists.h"
#include "invoice/professional_amounts.h"

namespace saldoro {

namespace {

using namespace Qt::StringLiterals;

QList<AmountRow> amountRows()
{
    return {
        {u"Im&porto Prestazione"_s, {}, u"Text4_0"_s, u"Compenso, con il punto per i decimali"_s},
        {u"Contri&buto previdenziale 4%"_s, {}, u"Text4_1"_s, u"Importo del contributo"_s},
        {u"Cassa Pre&videnza 2%"_s, {}, u"Text4_2"_s, u"Importo dovuto alla cassa"_s},
        {u"So&mma soggetta a Iva"_s, {}, u"Text2_0"_s, u"Prestazione, contributo e cassa"_s},
        {u"Ali&quota e importo IVA"_s, u"Text2_1"_s, u"Text2_2"_s,
         u"Aliquota in percento; l'importo si calcola da sé solo se è vuoto"_s},
        {u"Al&tri Importi"_s, {}, u"Text2_5"_s, u"Importi che si aggiungono al totale"_s},
        {u"Totale Fatt&ura"_s, {}, u"Text2_3"_s, u"Somma soggetta a IVA, IVA e altri importi"_s},
        {u"Somma so&ggetta a R.A."_s,
         {},
         u"Text2_4"_s,
         u"Prestazione e contributo"_s,
         Reach::OnRequest},
        {u"Aliquota e importo R.A."_s, u"Text5_0"_s, u"Text5_1"_s,
         u"Aliquota in percento; l'importo si calcola da sé se è vuoto o zero"_s},
        {u"Netto"_s, {}, u"Text5_2"_s, u"Totale della fattura meno la ritenuta d'acconto"_s},
    };
}

InvoiceFormLook professionalLook()
{
    return {u"Professionisti"_s,          u"MaskEdBox1"_s,
            u"Conti di Spesa"_s,          u"Elenca i professionisti incaricati nel contratto"_s,
            NotesPlace::AboveAllocations, amountRows()};
}

} // namespace

FrmProfessionisti::FrmProfessionisti(ProgramValues &values, const TextTable &overview)
    : InvoiceForm(values, overview, std::make_unique<ProfessionalAmounts>(), professionalLook())
{
    setObjectName(u"FrmProfessionisti"_s);
}

QStringList FrmProfessionisti::searchCreditors(const QString &) const
{
    return ProfessionalCreditors(values());
}

} // namespace saldoro
