#include "invoice/allocation_block.h"

#include "common/amount_text.h"
#include "common/errors.h"
#include "common/number_text.h"
#include "common/overview_column.h"
#include "common/text_cut.h"
#include "controls/message_box.h"
#include "store/allocation_records.h"
#include "store/archive_paths.h"
#include "store/pick_limits.h"

namespace saldoro {

using namespace Qt::StringLiterals;

namespace {

QString pickLine(const TextTable &overview, int row)
{
    QString line = overview.text(row, OverviewColumn::Cod).trimmed();
    // Only padded: a longer code stays readable as a whole.
    if (const qsizetype missing = PickedCodeWidth - CharacterCount(line); missing > 0)
        line += QString(missing, u' ');
    return line + overview.text(row, OverviewColumn::Descrizione) + u" L."_s +
           overview.text(row, OverviewColumn::Disponibilita);
}

void deleteStored(const ProgramValues &values, qint32 paymentNumber, const QString &code)
{
    const Database ledger = Database::open(LedgerPath(values));
    RecordSet allocations = OpenAllocations(ledger, paymentNumber);
    if (FindAllocation(allocations, code))
        allocations.deleteRecord();
}

void removeRow(TextTable &grid, int removed)
{
    const TextTable::BulkChange change(grid);
    for (int row = removed + 1; row < grid.rows(); ++row) {
        for (int column = 0; column < AllocationColumn::Count; ++column)
            grid.setText(row - 1, column, grid.text(row, column));
    }
    grid.setRows(grid.rows() - 1);
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
    grid.setText(row, AllocationColumn::Importo,
                 FormatImporto(Currency::fromDouble(LeadingNumber(typed))));
}

void DeleteCurrentRow(TextTable &grid, const ProgramValues &values, qint32 paymentNumber)
{
    grid.setColumn(AllocationColumn::Cod);
    if (grid.rows() <= 1 || grid.row() < 1)
        return;
    const QString code = grid.currentText();
    if (ChiediConferma(u"Vuoi eliminare il Cod. "_s + code + u"?"_s)) {
        deleteStored(values, paymentNumber, code);
        removeRow(grid, grid.row());
    }
    grid.setColumn(AllocationColumn::Importo);
}

} // namespace saldoro
