#include "invoice/allocation_block.h"

#include "common/amount_text.h"
#include "common/archive_folders.h"
#include "common/errors.h"
#include "common/form_helpers.h"
#include "common/message_box.h"
#include "common/number_text.h"
#include "common/overview_column.h"
#include "common/text_cut.h"
#include "invoice/allocation_total.h"
#include "store/cost_item_rules.h"
#include "store/ledger.h"

#include <utility>

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

} // namespace

AllocationBlock::AllocationBlock(const TextTable &overview, TextTable &grid)
    : m_overview(overview)
    , m_grid(grid)
    , m_totalText(FormatImporto(Currency()))
{
}

void AllocationBlock::prepareGrid()
{
    m_grid.setHeader({u"Cod"_s, u"Descrizione"_s, u"Importo"_s});
}

bool AllocationBlock::CekCodCaricato(const QString &code) const
{
    const QString wanted = code.trimmed();
    for (int row = 1; row < m_grid.rows(); ++row) {
        if (m_grid.text(row, AllocationColumn::Cod).trimmed() == wanted)
            return false;
    }
    return true;
}

QStringList AllocationBlock::openPickList()
{
    m_pickLines.clear();
    m_pickDescriptions.clear();
    for (int row = 1; row < m_overview.rows(); ++row) {
        if (!CekCodCaricato(m_overview.text(row, OverviewColumn::Cod)))
            continue;
        if (m_pickLines.size() == PickListSize)
            throw BoundsError(u"Le voci di spesa da offrire sono più di %1."_s.arg(PickListSize),
                              u"Ridurre le voci della scheda dell'appalto."_s);
        m_pickLines.append(pickLine(m_overview, row));
        m_pickDescriptions.append(m_overview.text(row, OverviewColumn::Descrizione));
    }
    if (m_pickLines.isEmpty()) {
        ShowMessage(MessageKind::Information, u"Nessun elemento da inserire disponibile"_s);
    } else {
        m_grid.setRows(m_grid.rows() + 1);
        setCurrent(m_grid.rows() - 1, AllocationColumn::Cod);
    }
    return m_pickLines;
}

bool AllocationBlock::pick(int line)
{
    if (line < 0 || line >= m_pickLines.size())
        throw BoundsError(u"La riga scelta non è tra le voci di spesa offerte."_s);
    const QString code = LeftCharacters(m_pickLines[line], PickedCodeWidth).trimmed();
    if (code.isEmpty())
        return false;
    m_grid.setText(m_grid.row(), AllocationColumn::Cod, code);
    m_grid.setText(m_grid.row(), AllocationColumn::Descrizione, m_pickDescriptions[line]);
    m_grid.setColumn(AllocationColumn::Importo);
    return true;
}

void AllocationBlock::leavePickList()
{
    setCurrent(m_grid.rows() - 1, AllocationColumn::Cod);
    if (m_grid.currentText().isEmpty())
        m_grid.setRows(m_grid.rows() - 1);
    m_grid.setColumn(AllocationColumn::Importo);
}

bool AllocationBlock::isCurrentCellEditable() const
{
    return m_grid.column() == AllocationColumn::Importo && m_grid.row() > 0;
}

void AllocationBlock::editorEntered()
{
    m_editRow = m_grid.row();
    m_editColumn = m_grid.column();
}

void AllocationBlock::editorConfirmed(const QString &editorText)
{
    writeCurrentAmount(editorText);
    RecalcAllocationTotal();
}

void AllocationBlock::editorLeft(const QString &editorText)
{
    const int row = m_grid.row();
    const int column = m_grid.column();
    setCurrent(m_editRow, m_editColumn);
    writeCurrentAmount(editorText);
    RecalcAllocationTotal();
    setCurrent(row, column);
}

void AllocationBlock::writeCurrentAmount(const QString &editorText)
{
    m_grid.setCurrentText(FormatImporto(Currency::fromDouble(LeadingNumber(editorText))));
}

void AllocationBlock::deleteCurrentRow(const ProgramValues &values, qint32 paymentNumber)
{
    m_grid.setColumn(AllocationColumn::Cod);
    if (m_grid.rows() <= 1 || m_grid.row() < 1)
        return;
    const QString code = m_grid.currentText();
    const bool confirmed = ChiediConferma(u"Vuoi eliminare il Cod. "_s + code + u"?"_s);
    if (confirmed) {
        const Database ledger = Database::open(LedgerPath(values));
        RecordSet allocations = OpenAllocations(ledger, paymentNumber);
        if (FindAllocation(allocations, code))
            allocations.deleteRecord();
        removeCurrentRow();
    }
    RecalcAllocationTotal();
}

void AllocationBlock::removeCurrentRow()
{
    const TextTable::BulkChange change(m_grid);
    for (int row = m_grid.row() + 1; row < m_grid.rows(); ++row) {
        for (int column = 0; column < AllocationColumn::Count; ++column)
            m_grid.setText(row - 1, column, m_grid.text(row, column));
    }
    m_grid.setRows(m_grid.rows() - 1);
}

void AllocationBlock::RecalcAllocationTotal()
{
    m_totalText = AllocationTotal(m_grid);
    m_grid.setColumn(AllocationColumn::Importo);
}

void AllocationBlock::setCurrent(int row, int column)
{
    m_grid.setRow(row);
    m_grid.setColumn(column);
}

} // namespace saldoro
