#include "overview/closing_work.h"

#include "common/creditor_kind.h"
#include "common/errors.h"
#include "database/database.h"
#include "overview/document_register.h"
#include "overview/overview_document.h"
#include "overview/payment_statement.h"
#include "store/archive_paths.h"
#include "store/contract_sheet.h"
#include "store/internal_codes.h"
#include "store/shown_order.h"

#include <limits>

namespace saldoro {

using namespace Qt::StringLiterals;

namespace {

/** What the two runs over the payments differ in; the codes are internal ones. */
struct Run
{
    CreditorKind kind;
    QString creditors;
    QStringView earlierCode;
    QStringView lastCode;
    QStringView totalCode;
};

/** Number of payments in the set, which the documents count in 16 bits. */
qint16 paymentCount(const RecordSet &fatture, const QString &creditors)
{
    const int count = fatture.recordCount();
    if (count > std::numeric_limits<qint16>::max()) {
        OverflowError error(u"I pagamenti di un tipo sono più di 32.767: i documenti non possono "
                            "essere scritti."_s,
                            u"Rivolgersi all'assistenza per dividere il registro dei pagamenti."_s);
        error.addDetail(Detail::Payments, creditors);
        throw error;
    }
    return static_cast<qint16>(count);
}

void composeStatements(RecordSet &fatture, const QString &creditors, ProgramValues &values,
                       FrmElab &form)
{
    if (fatture.isEmpty())
        return;
    const qint16 count = paymentCount(fatture, creditors);
    for (int number = 1; number < count; ++number) {
        ComponiTestoPagamento(fatture, values);
        form.listBox.text += u"\r\n"_s + values.TestoPagamento;
        fatture.moveNext();
    }
    ComponiTestoPagamento(fatture, values);
    form.lastPaymentBox.text = values.TestoPagamento;
}

/** Returns the total of the kind. */
Currency writeRun(ProgramValues &values, FrmElab &form, const Run &run)
{
    RecordSet fatture = Database::open(LedgerPath(values))
                            .openRecordSet(u"SELECT * FROM Fatture  WHERE AziProf = '"_s +
                                           KindCode(run.kind) + u'\'' + PaymentsOrder);
    form.listBox.text.clear();
    values.TotaleLiquidato = Currency();
    composeStatements(fatture, run.creditors, values, form);
    SaveDocument(values, form.lastPaymentBox, run.lastCode);
    SaveDocument(values, form.listBox, run.earlierCode);
    RegisterDocument(values, run.earlierCode);
    RegisterDocument(values, run.lastCode);
    AggiornaVoceImporto(values, run.totalCode, ItemTag::None, values.TotaleLiquidato);
    return values.TotaleLiquidato;
}

} // namespace

void WriteProjectDocuments(ProgramValues &values, const TextTable &overview)
{
    FrmElab form;
    form.listBox.text = OverviewText(overview);
    if (!form.listBox.text.isEmpty()) // each line sets the font, and without one it stays
        form.listBox.fontName = form.lastPaymentBox.fontName = u"Courier New"_s;
    SaveDocument(values, form.listBox, InternalCode::OverviewDocument);
    RegisterDocument(values, InternalCode::OverviewDocument);
    ScriviProspettoRtf(values, form);
}

void ScriviProspettoRtf(ProgramValues &values, FrmElab &form)
{
    const Currency companies =
        writeRun(values, form,
                 {CreditorKind::Company, u"alle aziende"_s, InternalCode::EarlierCompanyPayments,
                  InternalCode::LastCompanyPayment, InternalCode::CompanyTotal});
    const Currency professionals =
        writeRun(values, form,
                 {CreditorKind::Professional, u"ai professionisti"_s,
                  InternalCode::EarlierProfessionalPayments, InternalCode::LastProfessionalPayment,
                  InternalCode::ProfessionalTotal});
    AggiornaVoceImporto(values, InternalCode::Total, ItemTag::None, companies + professionals);
}

} // namespace saldoro
