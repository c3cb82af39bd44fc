#include "store/contract_summary.h"

#include "common/errors.h"
#include "database/database.h"
#include "store/archive_paths.h"
#include "store/payment_amounts.h"

#include <QFileInfo>

#include <algorithm>

namespace saldoro {

using namespace Qt::StringLiterals;

ContractSummary SummariseContract(const QString &folder, int lockWait)
{
    ContractSummary summary;
    RecordSet budget = Database::open(ArchiveFilePath(ArchiveFile::Contract, folder), lockWait)
                           .openRecordSet(u"SELECT * FROM UltimaPerVariante"_s);
    for (; !budget.eof(); budget.moveNext()) {
        ++summary.items;
        summary.budget += budget.field(u"Importo"_s).currencyOrNone().value_or(Currency());
    }
    const QString ledger = ArchiveFilePath(ArchiveFile::Ledger, folder);
    if (!QFileInfo::exists(ledger))
        return summary;
    RecordSet payments = Database::open(ledger, lockWait).openRecordSet(u"SELECT * FROM Fatture"_s);
    for (; !payments.eof(); payments.moveNext()) {
        ++summary.payments;
        WithDetail(
            Detail::Payment, [&] { return payments.field(u"Npag"_s).textOrEmpty(); },
            [&] { summary.paid += GrossAmount(payments); });
        summary.lastPayment = std::max(summary.lastPayment, payments.field(u"Del"_s).dateOrNone());
    }
    return summary;
}

} // namespace saldoro
