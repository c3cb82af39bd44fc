#include "store/allocation_records.h"

#include "common/characters.h"
#include "database/criterion.h"
#include "store/payment_numbers.h"
#include "store/table_definitions.h"
#include "store/table_rows.h"

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

void SaveAllocation(RecordSet &allocations, qint32 paymentNumber, const QString &code,
                    const QString &description, Currency amount)
{
    if (FindAllocation(allocations, code)) {
        allocations.edit();
    } else {
        allocations.addNew();
        allocations.set(u"RelNpag"_s, paymentNumber);
        allocations.set(u"Cod"_s, TextOrNull(code));
        allocations.set(u"Descrizione"_s,
                        TextOrNull(LeftCharacters(description, LedgerSize::Descrizione)));
    }
    allocations.set(u"Importo"_s, amount);
    allocations.update();
}

} // namespace saldoro
