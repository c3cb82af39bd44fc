#include "invoice/allocation_block.h"

#include "common/amount_text.h"
#include "common/errors.h"
#include "common/overview_column.h"
#include "common/text_cut.h"
#include "store/archive_paths.h"
#include "store/ledger_records.h"
#include "store/pick_limits.h"

namespace saldoro {

using namespace Qt::StringLiterals;

namespace {

QString pickLine(const TextTable &overview, int row)
{
    const QString code = overview.text(row, OverviewColumn::Cod).trimmed();
    // Padded, but not cut: a longer code stays readable as a whole.
    return code + QString(PickedCodeWidth - CharacterCount(code), u' ') +
           overview.text(row, OverviewColumn::Descrizione) + u" L."_s +
           overview.text(row, OverviewColumn::Disponibilita);
}

} // namespace

void PrepareAllocations(TextTable &grid)
{
    grid.setHeader({u"Cod"_s, u"Descrizione"_s, u"Importo"_s});
}

bool CekCodCaricato(const TextTable &grid, const QString &code)
{
    const QString wanted = code.trimmed();
    for (int row = 1; row < grid.rows(); ++row) {
        if (grid.text(row, AllocationColumn::Cod).trimmed() == wanted)
            return false;
    }
    return true;
}

QList<OfferedItem> ItemsOnOffer(const TextTable &overview, const TextTable &grid)
{
    QList<OfferedItem> items;
    for (int row = 1; row < overview.rows(); ++row) {
        if (!CekCodCaricato(grid, overview.text(row, OverviewColumn::Cod)))
            continue;
        if (items.size() == PickListSize)
            throw BoundsError(u"Le voci di spesa da offrire sono più di %1."_s.arg(PickListSize),
                              u"Ridurre le voci della scheda dell'appalto."_s);
        items.append({pickLine(overview, row), overview.text(row, OverviewColumn::Descrizione)});
    }
    return items;
}

void BeginInsertion(TextTable &grid)
{
    grid.setRows(grid.rows() + 1);
    grid.setCurrentCell(grid.rows() - 1, AllocationColumn::Cod);
}

bool PickItem(TextTable &grid, const OfferedItem &item)
{
    const QString code = LeftCharacters(item.line, PickedCodeWidth).trimmed();
    if (code.isEmpty())
        return false;
    grid.setText(grid.row(), AllocationColumn::Cod, code);
    grid.setText(grid.row(), AllocationColumn::Descrizione, item.description);
    grid.setColumn(AllocationColumn::Importo);
    return true;
}

void EndInsertion(TextTable &grid)
{
    grid.setCurrentCell(grid.rows() - 1, AllocationColumn::Importo);
    if (grid.text(grid.row(), AllocationColumn::Cod).isEmpty())
        grid.setRows(grid.rows() - 1);
}

void WriteAmount(TextTable &grid, int row, const QString &typed)
{
    grid.setText(row, AllocationColumn::Importo, FormatImporto(PlainAmount(typed)));
}

QString AllocationTotal(const TextTable &grid)
{
    Currency total;
    for (int row = 1; row < grid.rows(); ++row) {
        const auto code = [&] { return grid.text(row, AllocationColumn::Cod); };
        WithDetail(Detail::Row, QString::number(row), [&] {
            WithDetail(Detail::Item, code,
                       [&] { total += ImportoDaTesto(grid.text(row, AllocationColumn::Importo)); });
        });
    }
    return FormatImporto(total);
}

void DeleteCurrentRow(TextTable &grid, const ProgramValues &values, qint32 paymentNumber)
{
    {
        const Database ledger = Database::open(LedgerPath(values));
        RecordSet allocations = OpenAllocations(ledger, paymentNumber);
        if (FindAllocation(allocations, grid.text(grid.row(), AllocationColumn::Cod)))
            allocations.deleteRecord();
    }
    const TextTable::BulkChange change(grid);
    for (int row = grid.row() + 1; row < grid.rows(); ++row) {
        for (int column = 0; column < AllocationColumn::Count; ++column)
            grid.setText(row - 1, column, grid.text(row, column));
    }
    grid.setRows(grid.rows() - 1);
}

} // namespace saldoro
