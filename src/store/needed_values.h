#pragma once

#include <QString>

namespace saldoro {

/** What becomes of the program at a null in that field of a table: a sentence in Italian, in lower
 *  case; empty where a null does no harm. @p kind is that of the payment, for its own fields. Cost
 *  items have rules of their own. */
QString ConsequenceOfNull(const QString &table, const QString &field, const QString &kind = {});

} // namespace saldoro
