#include "overview/document_writer.h"

#include "common/archive_folders.h"
#include "common/errors.h"
#include "common/text_cut.h"
#include "database/database.h"
#include "overview/frm_elab.h"
#include "overview/payment_statement.h"
#include "store/code_lookups.h"
#include "store/internal_codes.h"

#include <array>
#include <limits>

namespace saldoro {

using namespace Qt::StringLiterals;

namespace {

/** The suite's readers go by the item; they give the tag of these entries no meaning. */
constexpr qint16 RegisterTag = 0;
constexpr qint16 TotalTag = 0;

/** What the two runs over the payments differ in; the codes are internal ones. */
struct Run
{
    QString sql;
    QString creditors;
    QStringView earlierCode;
    QStringView lastCode;
    QStringView totalCode;
};

QString documentName(const ProgramValues &values, QStringView internalCode)
{
    return CodiceEsterno(values, internalCode) + u".rtf"_s;
}

void saveDocument(const ProgramValues &values, const RichTextBox &box, QStringView internalCode)
{
    box.saveFile(ProjectFolder(values) + u'\\' + documentName(values, internalCode));
}

void registerDocument(const ProgramValues &values, QStringView internalCode)
{
    Naming(u"Codice"_s, internalCode.toString(), [&] {
        ScriviVoceFile(values, CodiceEsterno(values, internalCode), RegisterTag,
                       DescrizioneFunzione(values, internalCode),
                       documentName(values, internalCode));
    });
}

QString overviewLine(const TextTable &overview, int row)
{
    constexpr std::array<qsizetype, 5> widths = {5, 35, 17, 17, 17};
    QString line;
    for (int column = 0; column < static_cast<int>(widths.size()); ++column) {
        line += FixedWidth(overview.text(row, column), widths.at(static_cast<size_t>(column)));
        if (column == 1)
            line += u"  "_s;
    }
    return line + u"\r\n"_s;
}

/** Number of payments in the set, which the documents count in 16 bits. */
qint16 paymentCount(RecordSet &fatture, const QString &creditors)
{
    fatture.moveLast();
    const int count = fatture.recordCount();
    if (count > std::numeric_limits<qint16>::max()) {
        OverflowError error(u"I pagamenti di un tipo sono più di 32.767: i documenti non possono "
                            "essere scritti."_s,
                            u"Rivolgersi all'assistenza per dividere il registro dei pagamenti."_s);
        error.addDetail(u"Pagamenti"_s, creditors);
        throw error;
    }
    fatture.moveFirst();
    return static_cast<qint16>(count);
}

void composeStatements(RecordSet &fatture, const QString &creditors, ProgramValues &values,
                       FrmElab &form)
{
    if (fatture.isEmpty())
        return;
    const qint16 count = paymentCount(fatture, creditors);
    const LedgerPayment payment(fatture);
    for (int number = 1; number < count; ++number) {
        ComponiTestoPagamento(payment, values);
        form.listBox().appendText(u"\r\n"_s);
        form.listBox().appendText(values.TestoPagamento);
        fatture.moveNext();
    }
    ComponiTestoPagamento(payment, values);
    form.lastPaymentBox().setText(values.TestoPagamento);
}

void writeRun(ProgramValues &values, FrmElab &form, const Run &run)
{
    const Database ledger = Database::open(LedgerPath(values));
    RecordSet fatture = ledger.openRecordSet(run.sql);
    form.listBox().setText(QString());
    values.TotaleLiquidato = Currency();
    composeStatements(fatture, run.creditors, values, form);
    saveDocument(values, form.lastPaymentBox(), run.lastCode);
    saveDocument(values, form.listBox(), run.earlierCode);
    fatture.close();
    registerDocument(values, run.earlierCode);
    registerDocument(values, run.lastCode);
    AggiornaVoceImporto(values, run.totalCode, TotalTag, values.TotaleLiquidato);
}

} // namespace

void WriteProjectDocuments(ProgramValues &values, const TextTable &overview)
{
    FrmElab form;
    form.listBox().setText(QString());
    for (int row = 1; row < overview.rows(); ++row) {
        form.setFontName(u"Courier New"_s);
        form.listBox().appendText(overviewLine(overview, row));
    }
    saveDocument(values, form.listBox(), InternalCode::OverviewDocument);
    registerDocument(values, InternalCode::OverviewDocument);
    ScriviProspettoRtf(values, form);
}

void ScriviProspettoRtf(ProgramValues &values, FrmElab &form)
{
    writeRun(values, form,
             {u"SELECT * FROM Fatture  WHERE AziProf = 'A' ORDER BY Npag "_s, u"alle aziende"_s,
              InternalCode::EarlierCompanyPayments, InternalCode::LastCompanyPayment,
              InternalCode::CompanyTotal});
    const Currency companies = values.TotaleLiquidato;
    writeRun(values, form,
             {u"SELECT * FROM Fatture  WHERE AziProf = 'P' ORDER BY Npag "_s,
              u"ai professionisti"_s, InternalCode::EarlierProfessionalPayments,
              InternalCode::LastProfessionalPayment, InternalCode::ProfessionalTotal});
    AggiornaVoceImporto(values, InternalCode::Total, TotalTag, companies + values.TotaleLiquidato);
}

} // namespace saldoro
