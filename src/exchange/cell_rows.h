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

    bool operator==(const CellFault &) const = default;
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
 * Parts a text into rows of cells. Lines end with LF, CR LF or CR. A cell that holds the separator,
 * a quote or the end of a line stands in quotes, and each quote within is doubled. Blanks count as
 * any other character.
 *
 * Programs put cells on the clipboard with tabs between them. With a tab as separator a quote in
 * any other place is an ordinary character, and so are two with a tab or nothing but ends of lines
 * and blanks between them: they are ditto marks of two cells. With another separator it is a fault,
 * and so is a byte order mark in a cell without quotes.
 *
 * @param most rows that are read; the rest of the text is not looked at.
 */
TextRows RowsOfText(QStringView text, QChar separator,
                    qsizetype most = std::numeric_limits<qsizetype>::max());

} // namespace saldoro
