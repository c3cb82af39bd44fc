#pragma once

#include "common/program_values.h"
#include "controls/text_table.h"

#include <QStringList>

namespace saldoro {

/** Columns of the grid. */
namespace AllocationColumn {
inline constexpr int Cod = 0;
inline constexpr int Descrizione = 1;
inline constexpr int Importo = 2;
inline constexpr int Count = 3;
} // namespace AllocationColumn

/**
 * The allocation of one payment over cost items: the grid of code, description and amount, the
 * pick list of items, the in-place editor's value and the total. Works on the grid's own table
 * and on the overview's, which is read anew for every pick list.
 *
 * Both tables must outlive the block; the overview's has at least five columns.
 */
class AllocationBlock
{
public:
    AllocationBlock(const TextTable &overview, TextTable &grid);

    /** Three columns and the header row alone. */
    void prepareGrid();

    /** True when no row holds the code yet: trimmed texts, compared exactly. */
    bool CekCodCaricato(const QString &code) const;

    /**
     * Starts an insertion. The lines of the pick list: items of the overview that are not in the
     * grid. With at least one line an empty row is added and its first cell made current;
     * otherwise the user is told that there is nothing to insert and nothing changes. Throws
     * BoundsError for more than PickListSize items.
     */
    QStringList openPickList();
    /** Puts the item of that line into the current row and makes its amount current, for the
     *  editor to open on. False, with nothing done, for an item without a code: the list is then
     *  left as without a choice. Throws BoundsError for a line that was not offered. */
    bool pick(int line);
    /** The pick list is left: an empty last row goes, the last row's amount becomes current.
     *  Harmless after pick(). */
    void leavePickList();

    /** Whether the editor may open: an amount below the header is current. */
    bool isCurrentCellEditable() const;
    /** The editor got the focus: remembers the current cell as the one being edited. */
    void editorEntered();
    /** Enter in the editor: its value, in display form, goes into the current cell. */
    void editorConfirmed(const QString &editorText);
    /** The editor lost the focus: its value goes into the cell being edited; the current cell
     *  stays where it is. */
    void editorLeft(const QString &editorText);

    /**
     * Deletes the current row after asking: at once from the ledger, whether or not the payment
     * is saved later, and from the grid. Nothing happens while no body row is current. Database
     * errors pass.
     */
    void deleteCurrentRow(const ProgramValues &values, qint32 paymentNumber);

    /** Sums the amounts of the grid; to be called once after loading. The amount column becomes
     *  current. */
    void RecalcAllocationTotal();
    /** The sum in display form, as last computed. */
    const QString &totalText() const { return m_totalText; }

private:
    void setCurrent(int row, int column);
    void writeCurrentAmount(const QString &editorText);
    void removeCurrentRow();

    const TextTable &m_overview;
    TextTable &m_grid;
    QStringList m_pickLines;
    QStringList m_pickDescriptions;
    int m_editRow = 0;
    int m_editColumn = 0;
    QString m_totalText;
};

} // namespace saldoro
