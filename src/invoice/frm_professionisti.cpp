#include "invoice/frm_professionisti.h"

#include "invoice/creditor_fields.h"
#include "invoice/creditor_search.h"

namespace saldoro {

using namespace Qt::StringLiterals;

FrmProfessionisti::FrmProfessionisti(ProgramValues &values, const TextTable &overview)
    : InvoiceForm(values, overview,
                  {CreditorKind::Professional, u"Professionisti"_s, u"MaskEdBox1"_s,
                   u"Conti di Spesa"_s, NotesPlace::AboveAllocations})
{
    setObjectName(u"FrmProfessionisti"_s);
    creditorFields().addSearch(u"Command5"_s, u"&Ricerca"_s,
                               u"Elenca i professionisti incaricati nel contratto"_s,
                               [this] { return ProfessionalCreditors(this->values()); });
}

} // namespace saldoro
