#include "store/allocation_records.h"

#include "database/criterion.h"
#include "store/payment_numbers.h"

namespace saldoro {

using namespace Qt::StringLiterals;

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
