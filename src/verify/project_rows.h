#pragma once

#include "common/currency.h"
#include "database/record_set.h"
#include "database/table_def.h"
#include "store/cost_item_rules.h"
#include "verify/findings.h"

#include <QList>
#include <QString>

#include <optional>

namespace saldoro {

/*
 * The rows that the checks go over. A value that is missing or wrong is none here; when it stops
 * the program it becomes a finding as the row is read.
 */

/** A payment; rows are those of the payments list, from 1. */
struct PaymentRow
{
    int row = 0;
    std::optional<qint32> number;
    std::optional<QString> kind;
    std::optional<Currency> gross;
    QString name; ///< "Pagamento 12 (riga 3, Edil Rossi)"
};

/** An allocation. */
struct AllocationRow
{
    std::optional<qint32> payment;
    std::optional<QString> code;
    std::optional<Currency> amount;
    QString name; ///< "Conto di spesa alla riga 4 (pagamento 12, codice A01)"
};

/** Each reads a table that has just been opened, all fields of @p table being there. Throws
 *  DatabaseError. */
QList<PaymentRow> ReadPayments(RecordSet &records, const TableDef &table, Findings &findings);
QList<AllocationRow> ReadAllocations(RecordSet &records, const TableDef &table, Findings &findings);
QList<CostItem> ReadBudget(RecordSet &records, const TableDef &table, Findings &findings);

/** "Voce A01 (riga 2)": a cost item by its place, from 0. */
QString CostItemName(const CostItem &item, qsizetype place);

} // namespace saldoro
