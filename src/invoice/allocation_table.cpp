#include "invoice/allocation_table.h"

#include "common/amount_text.h"
#include "common/errors.h"
#include "store/allocation_records.h"
#include "store/archive_paths.h"

namespace saldoro {

using namespace Qt::StringLiterals;

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
        RecordSet allocations = OpenAllocations(Database::open(LedgerPath(values)), paymentNumber);
        DeleteAllocation(allocations, grid.text(grid.row(), AllocationColumn::Cod));
    }
    const TextTable::BulkChange change(grid);
    for (int row = grid.row() + 1; row < grid.rows(); ++row) {
        for (int column = 0; column < AllocationColumn::Count; ++column)
            grid.setText(row - 1, column, grid.text(row, column));
    }
    grid.setRows(grid.rows() - 1);
}

} // namespace saldoro
