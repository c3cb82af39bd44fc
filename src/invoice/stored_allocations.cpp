#include "invoice/stored_allocations.h"

#include "common/amount_text.h"

namespace saldoro {

RecordSet OpenAllocations(const Database &ledger, qint32 paymentNumber)
{
    return ledger.openRecordSet(QStringLiteral("SELECT *") +
                                QStringLiteral(" FROM Spese WHERE RelNpag = ") +
                                QString::number(paymentNumber));
}

bool FindAllocation(RecordSet &allocations, const QString &code)
{
    if (allocations.isEmpty())
        return false;
    allocations.moveFirst();
    if (code.isEmpty()) {
        while (!allocations.eof() && !allocations.field(QStringLiteral("Cod")).isNull())
            allocations.moveNext();
        return !allocations.eof();
    }
    allocations.findFirst(QStringLiteral("Cod = '") + RaddoppiaApici(code) + QStringLiteral("'"));
    return !allocations.noMatch();
}

} // namespace saldoro
