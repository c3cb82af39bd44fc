#pragma once

#include "common/currency.h"
#include "exchange/typed_rows.h"

#include <QList>
#include <QString>
#include <QStringList>

#include <functional>
#include <optional>

namespace saldoro {

/** What becomes of a row of pasted cells. */
enum class PastedState
{
    Taken,
    Faulty,   ///< can't be taken as it is
    SetAside, ///< header, title, total: nothing that the table keeps
    LeftOut,  ///< by the user
    Kept      ///< stands in the archive already
};

/** A row as it is shown. */
struct PastedRow
{
    QStringList cells;
    PastedState state = PastedState::Taken;
    QString reason = {}; ///< of the state, in Italian; empty for a row that is taken
};

/**
 * Cells that a user brings in from a spreadsheet for a table, on their way into its rows. Which
 * column is which field is told by a header or, without one, by the order of the needed fields, and
 * can be said otherwise. After each change every row is judged again.
 *
 * Amounts in the international notation throughout are written in the Italian one as they come in.
 */
class PastedTable
{
public:
    /** What else is wrong with rows that can be read; a fault's line is the place among them. */
    using Check = std::function<QList<CellFault>(const TableRows &)>;

    /** @param table lives as long as the object.
     *  @param kept rows that are there already, a text for each field. */
    explicit PastedTable(const ExchangedTable &table, Check check = {},
                         const QList<QStringList> &kept = {});

    /** Takes rows in the place of those that came in before. */
    void setRows(const QList<CellRow> &rows);
    /** Cells as programs put them on the clipboard: tabs between them, quotes around some. A text
     *  without tabs may have ";" between its cells. Throws SaldoroError for the latter when it
     *  can't be read to its end; then nothing has changed. */
    void setText(const QString &text);
    /** Adds an empty row that the user fills; gives its place. */
    qsizetype addRow();

    const ExchangedTable &table() const { return m_table; }
    const QList<PastedRow> &rows() const { return m_rows; }
    qsizetype columns() const { return m_columns.places.size(); }
    /** What a field is called on the screen: "Codice" for `Voce`. */
    static QString caption(const QString &field);
    /** The number of a column, from 1, with the caption of its field: "2. Descrizione". */
    QString columnName(qsizetype column) const;
    /** What the header says of a column, or else its first cell that came in. */
    QString columnSample(qsizetype column) const;
    /** The column that fills a field; -1 for none. */
    qsizetype columnOf(const QString &field) const;
    void setColumn(const QString &field, qsizetype column);

    /** Rows that stand in the archive are not changed. */
    void setCell(qsizetype row, qsizetype column, const QString &text);
    /** Leaves a row out, or takes it in again; the header taken in is no header any more. */
    void toggle(qsizetype row);

    /** The rows that are taken, and those of another state. */
    const TableRows &taken() const { return m_taken; }
    qsizetype count(PastedState state) const;
    /** Sum of `Importo` over the rows that are taken; 0 in a table without amounts, none beyond the
     *  range. */
    std::optional<Currency> total() const;
    /** What calls for attention in the whole; may be empty. */
    QString remark() const;
    /** Whether there are rows to take and every row can be taken or stays out. */
    bool isReady() const;

private:
    void judge();
    void showKept();
    void readInItalian();
    QString setAsideReason(qsizetype row) const;
    void addFault(qsizetype row, const QString &reason);

    const ExchangedTable &m_table;
    Check m_check;
    QList<QStringList> m_kept;
    QList<PastedRow> m_rows;    ///< those that are kept come first
    CellColumns m_columns;      ///< its first row counts from the first one that came in
    bool m_isConverted = false; ///< from the international notation
    TableRows m_taken;
};

} // namespace saldoro
