#include "bare_reads.h"

#include "bare_file.h"
#include "common/archive_folders.h"

namespace saldoro {

qint64 ReadMainScreenRows(const ProgramValues &values)
{
    qint64 sum = BareFile(LedgerPath(values)).readAll("SELECT * FROM Fatture ORDER BY Npag ");
    sum += BareFile(ContractPath(values)).readAll("SELECT * FROM UltimaPerVariante ORDER BY Voce");
    return sum + BareFile(LedgerPath(values)).readAll("SELECT * FROM Spese");
}

} // namespace saldoro
