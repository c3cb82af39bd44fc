#include "overview/availability_overview.h"

#include "common/amount_text.h"
#include "common/archive_folders.h"
#include "common/errors.h"
#include "database/database.h"

namespace saldoro {

using namespace Qt::StringLiterals;

namespace {

void appendBudgetRow(TextTable &overview, const RecordSet &budget, int code, int description,
                     int amount)
{
    const int row = overview.rows();
    overview.setRows(row + 1);
    overview.setRow(row);
    const auto write = [&] {
        overview.setText(row, OverviewColumn::Cod, budget.field(code).text());
        overview.setText(row, OverviewColumn::Descrizione, budget.field(description).text());
        const auto amountOrNone = budget.field(amount).currencyOrNone();
        overview.setText(row, OverviewColumn::Spesa,
                         amountOrNone ? FormatImporto(*amountOrNone) : u"0"_s);
    };
    WithDetail(u"Riga"_s, QString::number(row), [&] {
        WithDetail(
            u"Voce"_s, [&] { return overview.text(row, OverviewColumn::Cod); }, write);
    });
}

void appendBudgetRows(TextTable &overview, RecordSet &budget)
{
    if (budget.eof())
        return;
    const int code = budget.column(u"Voce"_s);
    const int description = budget.column(u"Descri"_s);
    const int amount = budget.column(u"Importo"_s);
    for (; !budget.eof(); budget.moveNext())
        appendBudgetRow(overview, budget, code, description, amount);
}

/** Everything that the ledger allocates to a cost item, whatever the payment. */
Currency paidOn(RecordSet &spese, const QString &code)
{
    const QString criterion = u"Cod = '"_s + code + u'\'';
    Currency paid;
    spese.findFirst(criterion);
    if (spese.noMatch())
        return paid;
    const int amount = spese.column(u"Importo"_s);
    for (; !spese.noMatch(); spese.findNext(criterion)) {
        WithDetail(
            u"Pagamento"_s, [&] { return spese.field(u"RelNpag"_s).textOrEmpty(); },
            [&] { paid += spese.field(amount).currency(); });
    }
    return paid;
}

void fillAmounts(TextTable &overview, int row, RecordSet &spese)
{
    const QString code = overview.text(row, OverviewColumn::Cod);
    WithDetail(u"Voce"_s, code, [&] {
        const Currency paid = paidOn(spese, code);
        const Currency budget = ImportoDaTesto(overview.text(row, OverviewColumn::Spesa));
        overview.setText(row, OverviewColumn::Spesa, FormatImporto(budget));
        overview.setText(row, OverviewColumn::Pagato, FormatImporto(paid));
        overview.setText(row, OverviewColumn::Disponibilita, FormatImporto(budget - paid));
    });
}

} // namespace

void PrepareAvailabilityOverview(TextTable &overview)
{
    overview.setHeader({u"Cod"_s, u"Descrizione"_s, u"Spesa"_s, u"Pagato"_s, u"Disponibilità"_s});
}

void FillAvailabilityOverview(TextTable &overview, const ProgramValues &values)
{
    Database contract = Database::open(ContractPath(values));
    RecordSet budget = contract.openRecordSet(u"SELECT * FROM UltimaPerVariante ORDER BY Voce"_s);
    const Database ledger = Database::open(LedgerPath(values));
    RecordSet spese = ledger.openRecordSet(u"SELECT * FROM Spese"_s);

    const TextTable::BulkChange change(overview);
    overview.setRows(1);
    appendBudgetRows(overview, budget);
    budget.close();
    contract.close();

    const int lastRow = overview.rows() - 1;
    for (int row = 1; row <= lastRow; ++row) {
        overview.setRow(row);
        overview.setColumn(OverviewColumn::Cod);
        if (!spese.isEmpty())
            fillAmounts(overview, row, spese);
    }
}

} // namespace saldoro
