#include "invoice/frm_aziende.h"

#include "invoice/creditor_fields.h"
#include "invoice/creditor_search.h"

#include <QPushButton>

namespace saldoro {

using namespace Qt::StringLiterals;

FrmAziende::FrmAziende(ProgramValues &values, const TextTable &overview)
    : InvoiceForm(values, overview,
                  {CreditorKind::Company, u"Aziende"_s, u"MaskEdBox1_0"_s, u" Conti di Spesa "_s,
                   NotesPlace::BelowAmounts})
{
    setObjectName(u"FrmAziende"_s);
    creditorFields().addSearch(
        u"Command5"_s, u"&Ricerca"_s,
        u"Elenca le imprese partecipanti il cui nome inizia come il creditore scritto"_s,
        [this] { return ParticipatingCompanies(this->values(), creditorFields().creditor()); });
    m_principals = creditorFields().addSearch(
        u"Command6"_s, u"&Mandanti"_s, u"Elenca le mandanti dell'associazione di imprese"_s,
        [this] { return Principals(this->values(), m_contractor.IdImpresa); });
    m_principals->setEnabled(false);
}

QString FrmAziende::startingCreditor()
{
    m_contractor = LoadContractor(values());
    m_principals->setEnabled(m_contractor.isAssociation);
    return m_contractor.name;
}

} // namespace saldoro
