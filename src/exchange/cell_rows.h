#pragma once

#include <QList>
#include <QString>
#include <QStringList>

#include <limits>
#include <optional>

namespace saldoro {

/** A row of cells, wherever it comes from. */
struct CellRow
{
    int line = 0;      ///< of the text that the row begins on, counted from 1
    QStringList cells; ///< an empty cell is a null text; "" is an empty text
};

/** What is wrong with a row of cells. */
struct CellFault
{
    int line = 0;    ///< of the row, from 1; 0 stands for all rows
    QString field;   ///< of the table; empty when it is not about one
    QString problem; ///< Italian, in lower case and with a full stop
};

/** The rows of a text, up to the fault that keeps the rest from being read. */
struct TextRows
{
    QList<CellRow> rows;
    std::optional<CellFault> fault;
};

/** How many lines end in @p text: with LF, CR LF or CR. */
int LineEnds(QStringView text);

/**
 * Parts a text into rows of cells. A cell that holds the separator, a quote or the end of a line
 * stands in quotes, quotes within are doubled, lines end with LF, CR LF or CR. Blanks count as any
 * other character.
 *
 * With a tab as separator, which is how programs put cells on the clipboard, a quote in any other
 * place is a character like others; with other separators it is a fault, as is the mark of a file's
 * beginning in a cell without quotes.
 *
 * @param most rows that are read; the rest of the text is not looked at.
 */
TextRows RowsOfText(QStringView text, QChar separator,
                    qsizetype most = std::numeric_limits<qsizetype>::max());

} // namespace saldoro
