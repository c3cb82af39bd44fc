#pragma once

#include "exchange/archive_tables.h"
#include "exchange/cell_rows.h"

#include <QList>
#include <QString>
#include <QStringList>

#include <utility>

namespace saldoro {

/** Which field of a table each cell of a row fills. */
struct CellColumns
{
    // What stands for the field of a cell that fills none.
    static constexpr qsizetype Unknown = -1;
    static constexpr qsizetype Nameless = -2;

    QList<qsizetype> fieldOfCell = {}; ///< its index in the table, for each cell
    qsizetype firstRow = 0;            ///< the one behind the header; 0 without a header
    QStringList missing = {};          ///< needed fields without a cell
    QStringList unknown = {};          ///< names that are no field's
    QStringList doubled = {};          ///< names that stand twice; the second fills no field
    /** Needed fields that are filled by a cell with a similar name only, each with that name. */
    QList<std::pair<QString, QString>> guesses = {};

    /** The cell that fills a field; -1 for none, and for a field of other tables. */
    qsizetype columnOf(const QString &field, const ExchangedTable &table) const
    {
        const qsizetype index = table.indexOf(field);
        return index < 0 ? -1 : fieldOfCell.indexOf(index);
    }
    /** How far it is from naming all needed fields: less is better. */
    auto lack() const { return std::pair(missing.size(), guesses.size()); }
};

/** Whether lists have that text above the names of companies or people, in any letter case: no
 *  creditor is called so. */
bool IsNameHeading(const QString &text);

/** Whether a column of that name may well be meant for a needed field. */
bool MayMean(const QString &name, const QString &field);

/** Looks among the first MostHeaderRows for the one that names the needed fields of @p table, in
 *  any letter case. Names much like them ("Descrizione" for Descri) count less, as guesses. */
CellColumns FindColumns(const QList<CellRow> &rows, const ExchangedTable &table);
inline constexpr qsizetype MostHeaderRows = 20; ///< that are looked at, for the separator too

/** As FindColumns(), for a header that was not written for this program. Where another column is
 *  headed for the code, "Voce" means the description; `missing`, `unknown` and `guesses` are
 *  not corrected for that. A row that names a single needed field may be one of values: it counts
 *  as a header only when the table needs one field and the name is exact or IsNameHeading(). One
 *  that names only some needed fields, by guess too, and has an amount is one of values as well. */
CellColumns GuessColumns(const QList<CellRow> &rows, const ExchangedTable &table);

} // namespace saldoro
