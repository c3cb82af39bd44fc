#include "store/listed_contract.h"

#include "common/errors.h"
#include "database/database.h"
#include "platform/machine_path.h"
#include "store/archive_paths.h"
#include "store/payment_amounts.h"

#include <algorithm>
#include <optional>

namespace saldoro {

using namespace Qt::StringLiterals;

namespace {

void addBudget(ListedContract &summary, RecordSet items)
{
    for (; !items.eof(); items.moveNext()) {
        ++summary.items;
        summary.budget += items.field(u"Importo"_s).currencyOrNone().value_or(Currency());
    }
}

void addPayments(ListedContract &summary, RecordSet payments)
{
    for (; !payments.eof(); payments.moveNext()) {
        ++summary.payments;
        WithDetail(
            Detail::Payment, [&] { return payments.field(u"Npag"_s).textOrEmpty(); },
            [&] { summary.paid += GrossAmount(payments); });
        summary.lastPayment = std::max(summary.lastPayment, payments.field(u"Del"_s).dateOrNone());
    }
}

} // namespace

ListedContract ReadListedContract(const QString &folder, int lockWait)
{
    // Opening and locking take most of the time: one connection and one transaction do for both.
    const Database contract =
        Database::open(ArchiveFilePath(ArchiveFile::Contract, folder), lockWait);
    std::optional<Database> ledger;
    if (const QString path = ArchiveFilePath(ArchiveFile::Ledger, folder); IsTaken(path))
        ledger = contract.attach(path);
    const Transaction together(contract, TransactionKind::Reading);
    ListedContract summary;
    addBudget(summary, contract.openRecordSet(u"SELECT * FROM UltimaPerVariante"_s));
    if (ledger)
        addPayments(summary, ledger->openRecordSet(u"SELECT * FROM Fatture"_s));
    return summary;
}

} // namespace saldoro
