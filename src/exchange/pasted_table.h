#pragma once

#include "exchange/typed_rows.h"

#include <QList>
#include <QMap>
#include <QSet>
#include <QString>
#include <QStringList>

#include <functional>

namespace saldoro {

/** What becomes of a row of pasted cells. */
enum class PastedState
{
    Taken,
    Faulty,   ///< can't be taken as it is
    SetAside, ///< header, title, total: nothing that the table keeps
    LeftOut   ///< by the user
};

/** A row as it is shown. */
struct PastedRow
{
    QStringList cells;
    PastedState state = PastedState::Taken;
    QString reason = {};          ///< of the state, in Italian; empty for a row that is taken
    QSet<qsizetype> written = {}; ///< cells that the user has written, not the source
};

/**
 * Cells from a spreadsheet that become rows of a table. A header tells which column is which field;
 * without one it is the order of the needed fields. The user can say otherwise. After each change
 * every row is judged again.
 *
 * When all amounts of the source turn out to be in the international notation they are rewritten in
 * the Italian one, also in rows that stay out. A column that is no longer the one of the amounts
 * gets its cells back as they were. When amounts come in both notations "250.125" is a fault;
 * correcting other cells does not make it sure.
 *
 * A cell of several lines becomes one line; where it may hold members, with ";" between them.
 */
class PastedTable
{
public:
    /** What else is wrong with rows that can be read; a fault's line is the row's number among
     *  them, from 1. What is wrong with all of them, in line 0, is a remark and keeps none out. */
    using Check = std::function<QList<CellFault>(const TableRows &)>;

    /** @param table lives as long as the object. */
    explicit PastedTable(const ExchangedTable &table, Check check = {});

    /** Takes rows in the place of all that are there. @p warnings of their source stay in the
     *  remark as long as the rows do. */
    void setRows(const QList<CellRow> &rows, const QStringList &warnings = {});
    /** The same for cells as programs put them on the clipboard: tabs between them, quotes around
     *  some. A text without tabs may have ";" between its cells. Throws SaldoroError for the latter
     *  when it can't be read to its end; then nothing has changed. */
    void setText(const QString &text);
    /** Adds an empty row that the user fills. */
    void addRow();

    const ExchangedTable &table() const { return m_table; }
    const QList<PastedRow> &rows() const { return m_rows; }
    qsizetype columns() const { return m_columns.fieldOfCell.size(); }
    /** The number of a column, from 1, with the caption of its field: "2. Descrizione". */
    QString columnName(qsizetype column) const;
    /** What the header says of a column, or else its first cell. */
    QString columnSample(qsizetype column) const;
    /** The column that fills a field; -1 for none, and for a field of other tables. */
    qsizetype columnOf(const QString &field) const;
    void setColumn(const QString &field, qsizetype column);

    void setCell(qsizetype row, qsizetype column, const QString &text);
    /** Leaves rows out, or takes them in again if all of them are left out. The header and the rows
     *  above it stay what they are among other rows; alone they are taken in, which means that
     *  there is no header. */
    void toggle(const QList<int> &rows);

    /** The rows that are taken; their lines are their numbers among rows(), from 1. */
    const GivenTable &taken() const { return m_taken; }
    qsizetype count(PastedState state) const;
    /** What calls for attention in the whole, a line each; may be empty. */
    QString remark() const;
    /** Whether there are rows to take and every row can be taken or stays out. */
    bool isReady() const { return !m_taken.rows.isEmpty() && count(PastedState::Faulty) == 0; }

private:
    void judge();
    /** Sets aside what is no row of the table and gives the rows that may be. */
    QList<CellRow> rowsToRead();
    void requireFields(int line, const TableRow &row);
    /** Takes the rows that have become faulty out of those that are taken. */
    void dropFaulty();
    /** Rewrites the amounts in the Italian notation. */
    void readInItalian();
    /** Gives the column that had the amounts its cells back, but for those corrected since. */
    void restoreAmounts(qsizetype column);
    QString setAsideReason(qsizetype row) const;
    void addFault(int line, const QString &reason);

    const ExchangedTable &m_table;
    Check m_check;
    QList<PastedRow> m_rows;
    CellColumns m_columns;
    QMap<QString, QString> m_doubts; ///< what the header leaves open about a field
    /** Cells of the amounts before they were rewritten; empty when they were not. */
    QStringList m_international;
    bool m_areMixed = false; ///< the amounts came in both notations
    QStringList m_warnings;
    QStringList m_faultsOfAll; ///< what the check says of all rows
    GivenTable m_taken;
};

} // namespace saldoro
