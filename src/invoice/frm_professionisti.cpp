#include "invoice/frm_professionisti.h"

#include "invoice/creditor_search.h"

namespace saldoro {

namespace {

using namespace Qt::StringLiterals;

InvoiceFormLook professionalLook()
{
    return {CreditorKind::Professional,
            u"Professionisti"_s,
            u"MaskEdBox1"_s,
            u"Conti di Spesa"_s,
            u"Elenca i professionisti incaricati nel contratto"_s,
            NotesPlace::AboveAllocations};
}

} // namespace

FrmProfessionisti::FrmProfessionisti(ProgramValues &values, const TextTable &overview)
    : InvoiceForm(values, overview, professionalLook())
{
    setObjectName(u"FrmProfessionisti"_s);
}

QStringList FrmProfessionisti::searchCreditors(const QString &) const
{
    return ProfessionalCreditors(values());
}

} // namespace saldoro
