#pragma once

#include "database/table_def.h"
#include "store/archive_paths.h"

#include <QList>
#include <QStringList>

namespace saldoro {

/** The tables of a database with the fields that the program relies on. Where the suite has made
 *  the database its tables may hold more fields, in another order. */
QList<TableDef> TablesOf(ArchiveFile file);

/** Fields of a payment without which the main screen does not open. */
QStringList NeededPaymentFields();
/** Those of them that can be set where they hold no value: the others tell which payment it is. */
QStringList SettablePaymentFields();

/** Most characters of the ledger's text columns, for entry fields and writers. */
namespace LedgerSize {
inline constexpr int Creditore = 60;
inline constexpr int NFat = 10;
inline constexpr int Descrizione = 50;
inline constexpr int Cod = 10;
} // namespace LedgerSize

} // namespace saldoro
