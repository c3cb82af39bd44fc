#pragma once

#include "exchange/header_row.h"

#include <QList>
#include <QString>

namespace saldoro {

/** What a field is called on the screen: "Codice" for `Voce`. */
QString FieldCaption(const QString &field);

/** Which column of pasted cells is which field, for as many columns as the widest row has: the one
 *  that a header names, or else for a needed field the usual one if it has no name and is no
 *  other's. Without rows
 *  each field has its usual column. All other columns fill no field, whatever they hold. */
CellColumns PastedColumns(const QList<CellRow> &rows, const ExchangedTable &table);

/** The columns that a field may be by the names in the header, if there are several, as a remark in
 *  Italian; else empty. @p columns are those of PastedColumns(). */
QString ColumnDoubt(const QString &field, const QList<CellRow> &rows, const CellColumns &columns,
                    const ExchangedTable &table);

} // namespace saldoro
