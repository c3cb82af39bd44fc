#include "store/allocation_records.h"

#include "common/characters.h"
#include "database/criterion.h"
#include "store/payment_numbers.h"
#include "store/table_definitions.h"
#include "store/table_rows.h"

namespace saldoro {

using namespace Qt::StringLiterals;

namespace {

/** Makes the allocation of that cost item the current record; true when there is one. */
bool find(RecordSet &allocations, const QString &code)
{
    if (code.isEmpty()) {
        allocations.moveFirst();
        while (!allocations.eof() && !allocations.field(u"Cod"_s).isNull())
            allocations.moveNext();
        return !allocations.eof();
    }
    allocations.findFirst(u"Cod = '"_s + RaddoppiaApici(code) + u"'"_s);
    return !allocations.noMatch();
}

} // namespace

RecordSet OpenAllocations(const Database &ledger, qint32 paymentNumber)
{
    return ledger.openRecordSet(u"SELECT * FROM Spese WHERE "_s +
                                AllocationsCriterion(paymentNumber));
}

void SaveAllocation(RecordSet &allocations, qint32 paymentNumber, const QString &code,
                    const QString &description, Currency amount)
{
    if (find(allocations, code)) {
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

void DeleteAllocation(RecordSet &allocations, const QString &code)
{
    if (find(allocations, code))
        allocations.deleteRecord();
}

} // namespace saldoro
