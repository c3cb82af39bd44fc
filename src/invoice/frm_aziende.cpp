#include "invoice/frm_aziende.h"

#include "invoice/creditor_fields.h"
#include "invoice/creditor_search.h"

#include <QPushButton>

namespace saldoro {

using namespace Qt::StringLiterals;

namespace {

InvoiceFormLook companyLook()
{
    return {CreditorKind::Company,
            u"Aziende"_s,
            u"MaskEdBox1_0"_s,
            u" Conti di Spesa "_s,
            u"Elenca le imprese partecipanti il cui nome inizia come il creditore scritto"_s,
            NotesPlace::BelowAmounts};
}

} // namespace

FrmAziende::FrmAziende(ProgramValues &values, const TextTable &overview)
    : InvoiceForm(values, overview, companyLook())
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
