#include "invoice/cost_item_choice.h"

#include "common/characters.h"
#include "common/errors.h"
#include "common/overview_column.h"
#include "invoice/allocation_table.h"
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
    const QString code = PickedCode(item.line);
    if (code.isEmpty())
        return false;
    const int row = grid.rows() - 1; // a screen reader may have selected another one
    grid.setText(row, AllocationColumn::Cod, code);
    grid.setText(row, AllocationColumn::Descrizione, item.description);
    grid.setCurrentCell(row, AllocationColumn::Importo);
    return true;
}

void EndInsertion(TextTable &grid)
{
    grid.setCurrentCell(grid.rows() - 1, AllocationColumn::Importo);
    if (grid.text(grid.row(), AllocationColumn::Cod).isEmpty())
        grid.setRows(grid.rows() - 1);
}

} // namespace saldoro
