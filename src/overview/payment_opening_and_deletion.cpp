#include "overview/payment_opening_and_deletion.h"

#include "common/errors.h"
#include "database/database.h"
#include "store/archive_paths.h"
#include "store/contract_sheet.h"
#include "store/mandate_note.h"
#include "store/payment_numbers.h"
#include "store/shown_order.h"

namespace saldoro {

using namespace Qt::StringLiterals;

namespace {

/** Deletes what meets the criterion, looking from the start each time. */
void deleteMatching(RecordSet &records, const QString &criterion)
{
    for (records.findFirst(criterion); !records.noMatch(); records.findFirst(criterion))
        records.deleteRecord();
}

} // namespace

std::optional<CreditorKind> OpenPayment(ProgramValues &values, qint32 number)
{
    RecordSet fatture =
        Database::open(LedgerPath(values)).openRecordSet(u"SELECT * FROM Fatture "_s);
    values.CurrentPaymentNumber = number;
    return WithDetail(Detail::Payment, QString::number(number), [&] {
        // After a failed find there is no current record, and the first one decides.
        if (!FindPayment(fatture, number))
            fatture.moveFirst();
        return KindOfCode(fatture.field(u"AziProf"_s).text());
    });
}

void DeletePayment(const ProgramValues &values, qint32 number)
{
    WithDetail(Detail::Payment, QString::number(number), [&] {
        EliminaVociLike(values, VoceMandato(values, number));
        const Database ledger = Database::open(LedgerPath(values));
        RecordSet fatture = ledger.openRecordSet(u"SELECT * FROM Fatture"_s + PaymentsOrder);
        RecordSet spese = ledger.openRecordSet(u"SELECT * FROM Spese ORDER BY RelNpag"_s);
        deleteMatching(fatture, PaymentCriterion(number));
        deleteMatching(spese, AllocationsCriterion(number));
    });
}

} // namespace saldoro
