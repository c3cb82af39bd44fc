#pragma once

#include "bare_file.h"
#include "store/archive_paths.h"

namespace saldoro {

/** Reads what the main screen stands on with bare calls: payments, cost items, allocations. The
 *  result only proves that it was read. */
inline qint64 ReadMainScreenRows(const ProgramValues &values)
{
    qint64 sum = BareFile(LedgerPath(values)).readAll("SELECT * FROM Fatture ORDER BY Npag ");
    sum += BareFile(ContractPath(values)).readAll("SELECT * FROM UltimaPerVariante ORDER BY Voce");
    return sum + BareFile(LedgerPath(values)).readAll("SELECT * FROM Spese");
}

} // namespace saldoro
