#pragma once

#include "database/cell_table.h"
#include "database/column_info.h"

#include <QDate>
#include <QString>

#include <optional>

namespace saldoro {

/** The text of a stored value: numbers in plain decimal form, days as dd/MM/yyyy, null as empty. */
QString StoredText(const CellTable &cells, const Cell &cell, const ColumnInfo &column);

/** The day in a stored text yyyy-MM-dd, a time of day after it being ignored. No value for
 *  anything else. */
std::optional<QDate> DayFromStoredText(const QString &text);

/** The plain decimal form of a count of ten-thousandths, without trailing zeros: "-0.5". */
QString TenThousandthsText(qint64 scaled);

/** The shortest plain decimal form that gives back @p value: "0.1". */
QString RealText(double value);

} // namespace saldoro
