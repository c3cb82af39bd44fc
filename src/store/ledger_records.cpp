#include "store/ledger_records.h"

#include "database/criterion.h"

namespace saldoro {

using namespace Qt::StringLiterals;

QString PaymentCriterion(qint32 number)
{
    return u"Npag = "_s + QString::number(number);
}

bool FindPayment(RecordSet &payments, qint32 number)
{
    payments.findFirst(PaymentCriterion(number));
    return !payments.noMatch();
}

QString AllocationsCriterion(qint32 paymentNumber)
{
    return u"RelNpag = "_s + QString::number(paymentNumber);
}

RecordSet OpenAllocations(const Database &ledger, qint32 paymentNumber)
{
    return ledger.openRecordSet(u"SELECT * FROM Spese WHERE "_s +
                                AllocationsCriterion(paymentNumber));
}

bool FindAllocation(RecordSet &allocations, const QString &code)
{
    if (allocations.isEmpty())
        return false;
    if (code.isEmpty()) {
        allocations.moveFirst();
        while (!allocations.eof() && !allocations.field(u"Cod"_s).isNull())
            allocations.moveNext();
        return !allocations.eof();
    }
    allocations.findFirst(u"Cod = '"_s + RaddoppiaApici(code) + u"'"_s);
    return !allocations.noMatch();
}

} // namespace saldoro
