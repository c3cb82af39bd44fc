#include "invoice/frm_aziende.h"

#include "invoice/company_amounts.h"
#include "invoice/creditor_fields.h"
#include "invoice/creditor_lists.h"

#include <QPushButton>

namespace saldoro {

using namespace Qt::StringLiterals;

namespace {

InvoiceFormLook companyLook()
{
    const QList<AmountRow> rows = {
        {u"Im&porto"_s, {}, u"Text2_0"_s, u"Imponibile, con il punto per i decimali"_s},
        {u"Ali&quota IVA"_s, {}, u"Text2_1"_s, u"In percento; lasciandola si ricalcola l'IVA"_s},
        {u"Importo I&VA"_s, {}, u"Text2_2"_s, u"Si calcola dall'aliquota e si può correggere"_s},
        {u"Totale Fatt&ura"_s, {}, u"Text2_3"_s, u"Importo e IVA"_s, Reach::OnRequest},
    };
    return {u"Aziende"_s,
            u"MaskEdBox1_0"_s,
            u" Conti di Spesa "_s,
            u"Elenca le imprese partecipanti il cui nome inizia come il creditore scritto"_s,
            NotesPlace::BelowAmounts,
            rows};
}

} // namespace

FrmAziende::FrmAziende(ProgramValues &values, const TextTable &overview)
    : InvoiceForm(values, overview, std::make_unique<CompanyAmounts>(), companyLook())
    , m_principals(creditorFields().addSearch(
          u"Command6"_s, u"&Mandanti"_s, u"Elenca le mandanti dell'associazione di imprese"_s,
          [this] { return Principals(this->values(), m_contractor.IdImpresa); }))
{
    setObjectName(u"FrmAziende"_s);
    m_principals->setEnabled(false);
}

PaymentRecord FrmAziende::startRecord()
{
    m_contractor = LoadContractor(values());
    m_principals->setEnabled(m_contractor.isAssociation);
    PaymentRecord start;
    start.creditore = m_contractor.name.value_or(QString());
    return start;
}

QStringList FrmAziende::searchCreditors(const QString &typed) const
{
    return ParticipatingCompanies(values(), typed);
}

} // namespace saldoro
