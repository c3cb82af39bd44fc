#include "demo_archive.h"

#include "archive_builder.h"
#include "common/amount_text.h"
#include "common/archive_folders.h"
#include "demo_tables.h"
#include "platform/machine_path.h"
#include "store/code_lookups.h"
#include "store/mandate_note.h"

#include <algorithm>
#include <iterator>

namespace saldoro {

namespace {

using namespace Qt::StringLiterals;

NewValue amount(QStringView text)
{
    return text.isEmpty() ? NewValue() : NewValue(ImportoDaTesto(text.toString()));
}

/** Rates are whole numbers of percent here. */
NewValue rate(QStringView text)
{
    return text.isEmpty() ? NewValue() : NewValue(Currency::fromWhole(text.toInt()));
}

void addSheet(const ProgramValues &values)
{
    RowAppender sheet(ContractPath(values), u"SchedaProgetto"_s);
    for (const Demo::SheetItem &item : Demo::Sheet) {
        sheet.add({{u"Voce"_s, item.code.toString()},
                   {u"Funzione"_s, item.function},
                   {u"Descri"_s, item.description.toString()},
                   {u"Stringa"_s, item.text.toString()}});
    }
    sheet.add({{u"Voce"_s, CodiceEsterno(values, u"DA1"_s)},
               {u"Funzione"_s, 1},
               {u"Descri"_s, DescrizioneFunzione(values, u"DA1"_s)},
               {u"Stringa"_s, Demo::Companies[0].name.toString()},
               {u"Link"_s, Demo::Contractor}});
}

void addBudget(const ProgramValues &values)
{
    RowAppender budget(ContractPath(values), u"UltimaPerVariante"_s);
    for (const Demo::BudgetItem &item : Demo::Budget) {
        budget.add({{u"Voce"_s, item.code.toString()},
                    {u"Descri"_s, item.description.toString()},
                    {u"Importo"_s, amount(item.amount)}});
    }
}

void addCompanies(ArchiveBuilder &archive)
{
    for (const Demo::Company &company : Demo::Companies) {
        archive.addCompany(company.id, company.name.toString(), company.kind.toString());
    }
    qint32 order = 0;
    for (const int participant : Demo::Participants) {
        archive.addParticipant(++order, participant);
    }
    for (const int principal : Demo::Principals) {
        archive.addPrincipal(Demo::Contractor, principal);
    }
}

FieldList paymentFields(const Demo::Payment &payment)
{
    return {{u"AziProf"_s, QString(QChar(payment.kind))},
            {u"Npag"_s, payment.number},
            {u"Creditore"_s, payment.creditor.toString()},
            {u"NFat"_s, payment.invoice.toString()},
            {u"Del"_s, QDate::fromString(payment.day.toString(), Qt::ISODate)},
            {u"Memo"_s, payment.note.toString()},
            {u"Descrizione"_s, payment.description.toString()},
            {u"Aliquota"_s, rate(payment.vatRate)},
            {u"Importo"_s, amount(payment.taxable)},
            {u"ImportoIVA"_s, amount(payment.vat)},
            {u"AliquotaRA"_s, rate(payment.withholdingRate)},
            {u"ImportoPrest"_s, amount(payment.fee)},
            {u"Contributo"_s, amount(payment.contribution)},
            {u"CassaPrev"_s, amount(payment.fund)},
            {u"ImportoRA"_s, amount(payment.withheld)},
            {u"AltriImporti01"_s, amount(payment.other)}};
}

QString itemDescription(QStringView code)
{
    const auto *item = std::find_if(std::begin(Demo::Budget), std::end(Demo::Budget),
                                    [&](const auto &budget) { return budget.code == code; });
    return item == std::end(Demo::Budget) ? QString() : item->description.toString();
}

void addPayments(const ProgramValues &values)
{
    RowAppender payments(LedgerPath(values), u"Fatture"_s);
    for (const Demo::Payment &payment : Demo::Payments) {
        payments.add(paymentFields(payment));
    }
    RowAppender allocations(LedgerPath(values), u"Spese"_s);
    for (const Demo::Allocation &allocation : Demo::Allocations) {
        allocations.add({{u"RelNpag"_s, allocation.payment},
                         {u"Cod"_s, allocation.code.toString()},
                         {u"Descrizione"_s, itemDescription(allocation.code)},
                         {u"Importo"_s, amount(allocation.amount)}});
    }
}

void addMandates(const ProgramValues &values)
{
    for (const Demo::Mandate &mandate : Demo::Mandates) {
        // Payments are numbered from 1 without a gap.
        const Demo::Payment &payment = Demo::Payments[mandate.payment - 1];
        ScriviVoceStringa(values, VoceMandato(values, mandate.payment), 0,
                          MandateDescription(mandate.payment, payment.creditor.toString()),
                          ComposeMandateNote(mandate.number.toString(), mandate.day.toString()));
    }
}

} // namespace

void MakeDemoProject(const QString &root, const QString &projectCode)
{
    ArchiveBuilder archive(root, projectCode);
    const ProgramValues &values = archive.values();
    if (CodiceEsterno(values, u"DA1"_s).isEmpty()) {
        archive.addStandardCodes();
    }
    addSheet(values);
    addBudget(values);
    addCompanies(archive);
    addPayments(values);
    addMandates(values);
}

} // namespace saldoro
