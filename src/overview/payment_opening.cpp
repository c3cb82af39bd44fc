#include "overview/payment_opening.h"

#include "common/errors.h"
#include "database/database.h"
#include "store/archive_paths.h"

namespace saldoro {

using namespace Qt::StringLiterals;

std::optional<CreditorKind> OpenPayment(ProgramValues &values, qint32 row)
{
    const Database ledger = Database::open(LedgerPath(values));
    RecordSet fatture = ledger.openRecordSet(u"SELECT * FROM Fatture "_s);
    values.CurrentPaymentNumber = row;
    const QString number = QString::number(row);
    return WithDetail(Detail::Payment, number, [&] {
        fatture.findFirst(u"Npag ="_s + number);
        // After a failed find there is no current record, and the first one decides.
        if (fatture.noMatch())
            fatture.moveFirst();
        return KindOfCode(fatture.field(u"AziProf"_s).text());
    });
}

} // namespace saldoro
