#include "overview/payment_deletion.h"

#include "common/errors.h"
#include "controls/message_box.h"
#include "database/database.h"
#include "store/archive_paths.h"
#include "store/code_lookups.h"
#include "store/mandate_note.h"

namespace saldoro {

using namespace Qt::StringLiterals;

namespace {

/** Deletes what meets the criterion, looking from the start each time. */
void deleteMatching(RecordSet &records, const QString &criterion)
{
    records.findFirst(criterion);
    while (!records.noMatch()) {
        records.deleteRecord();
        records.findFirst(criterion);
    }
}

void deleteFromLedger(const ProgramValues &values, const QString &number)
{
    const Database ledger = Database::open(LedgerPath(values));
    RecordSet fatture = ledger.openRecordSet(u"SELECT * FROM Fatture ORDER BY Npag "_s);
    RecordSet spese = ledger.openRecordSet(u"SELECT * FROM Spese ORDER BY RelNpag"_s);
    deleteMatching(fatture, u"Npag = "_s + number);
    deleteMatching(spese, u"RelNpag = "_s + number);
}

} // namespace

bool ConfirmDeletion(qint32 row)
{
    return ChiediConferma(u"Sei sicuro di vole eliminare il pagamento N°"_s + QString::number(row));
}

void DeletePayment(const ProgramValues &values, qint32 row)
{
    const QString number = QString::number(row);
    WithDetail(Detail::Payment, number, [&] {
        EliminaVociLike(values, VoceMandato(values, row));
        deleteFromLedger(values, number);
    });
}

} // namespace saldoro
