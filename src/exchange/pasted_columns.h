#pragma once

#include "exchange/header_row.h"

#include <QList>
#include <QString>

namespace saldoro {

/** What a field is called on the screen: "Codice" for `Voce`. */
QString FieldCaption(const QString &field);

/** The field of each column of pasted cells; as many columns as the widest row or the table has. A
 *  field has the column that the header names. A needed field without one has its usual column, if
 *  that has no name and no other field. Without rows every field has its usual column. */
CellColumns PastedColumns(const QList<CellRow> &rows, const ExchangedTable &table);

/** The columns that a field may be by the names in the header, if there are several, as a remark in
 *  Italian; else empty. @p columns are those of PastedColumns(). */
QString ColumnDoubt(const QString &field, const QList<CellRow> &rows, const CellColumns &columns,
                    const ExchangedTable &table);

} // namespace saldoro
