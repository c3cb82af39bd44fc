#include "overview/availability_overview.h"

#include "common/amount_text.h"
#include "common/errors.h"
#include "database/database.h"
#include "store/archive_paths.h"
#include "store/shown_order.h"

namespace saldoro {

using namespace Qt::StringLiterals;

namespace {

void appendBudgetRow(TextTable &overview, const RecordSet &budget)
{
    const int row = overview.rows();
    overview.setRows(row + 1);
    overview.setCurrentCell(row, OverviewColumn::Cod);
    const auto code = [&] { return overview.text(row, OverviewColumn::Cod); };
    WithDetail(Detail::Row, QString::number(row), [&] {
        WithDetail(Detail::Item, code, [&] {
            overview.setText(row, OverviewColumn::Cod, budget.field(u"Voce"_s).text());
            overview.setText(row, OverviewColumn::Descrizione, budget.field(u"Descri"_s).text());
            const auto amount = budget.field(u"Importo"_s).currencyOrNone();
            overview.setText(row, OverviewColumn::Spesa, amount ? FormatImporto(*amount) : u"0"_s);
        });
    });
}

/** Everything that the ledger allocates to a cost item, whatever the payment. */
Currency paidOn(RecordSet &spese, const QString &code)
{
    // An apostrophe stays single here, unlike in store/allocation_records, and ends the load.
    const QString criterion = u"Cod = '"_s + code + u'\'';
    const auto payment = [&] { return spese.field(u"RelNpag"_s).textOrEmpty(); };
    Currency paid;
    for (spese.findFirst(criterion); !spese.noMatch(); spese.findNext(criterion))
        WithDetail(Detail::Payment, payment, [&] { paid += spese.field(u"Importo"_s).currency(); });
    return paid;
}

void fillAmounts(TextTable &overview, int row, RecordSet &spese)
{
    const QString code = overview.text(row, OverviewColumn::Cod);
    WithDetail(Detail::Item, code, [&] {
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
    RecordSet budget = Database::open(ContractPath(values))
                           .openRecordSet(u"SELECT * FROM UltimaPerVariante"_s + BudgetOrder);
    RecordSet spese = Database::open(LedgerPath(values)).openRecordSet(u"SELECT * FROM Spese"_s);

    const TextTable::BulkChange change(overview);
    overview.setRows(1);
    for (; !budget.eof(); budget.moveNext())
        appendBudgetRow(overview, budget);
    for (int row = 1; row < overview.rows() && !spese.isEmpty(); ++row)
        fillAmounts(overview, row, spese);
}

} // namespace saldoro
