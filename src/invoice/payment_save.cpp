#include "invoice/payment_save.h"

#include "common/amount_text.h"
#include "common/archive_folders.h"
#include "common/errors.h"
#include "common/number_text.h"
#include "common/text_cut.h"
#include "database/database.h"
#include "invoice/allocation_block.h"
#include "invoice/stored_allocations.h"
#include "store/code_lookups.h"
#include "store/ledger.h"
#include "store/mandate_note.h"

namespace saldoro {

using namespace Qt::StringLiterals;

namespace {

/** What to write where the ledger takes null but no empty text. */
NewValue textOrNull(const QString &text)
{
    return text.isEmpty() ? NewValue() : NewValue(text);
}

NewValue dateOrNull(const QString &boxText)
{
    return boxText == EmptyDateText ? NewValue() : textOrNull(boxText);
}

Currency storedValue(const AmountChain &amounts, int field)
{
    const QString text = amounts.text(field);
    return amounts.field(field).role == AmountRole::Rate ? Currency::fromDouble(LeadingNumber(text))
                                                         : ImportoDaTesto(QString(text));
}

void fillPayment(RecordSet &payments, qint32 paymentNumber, const PaymentRecord &record,
                 const AmountChain &amounts)
{
    payments.set(u"AziProf"_s, KindCode(amounts.kind()));
    payments.set(u"Npag"_s, paymentNumber);
    payments.set(u"Creditore"_s, textOrNull(record.creditore));
    payments.set(u"NFat"_s, record.nFat);
    payments.set(u"Del"_s, dateOrNull(record.del));
    payments.set(u"Memo"_s, record.memo);
    payments.set(u"Descrizione"_s, record.descrizione);
    for (const StoredAmount &item : amounts.storedAmounts())
        payments.set(item.column, storedValue(amounts, item.field));
}

void writePayment(RecordSet &payments, qint32 paymentNumber, const PaymentRecord &record,
                  const AmountChain &amounts)
{
    bool found = false;
    if (!payments.isEmpty()) {
        payments.findFirst(u"Npag ="_s + QString::number(paymentNumber));
        found = !payments.noMatch();
    }
    if (found)
        payments.edit();
    else
        payments.addNew();
    fillPayment(payments, paymentNumber, record, amounts);
    payments.update();
}

void writeAllocation(RecordSet &allocations, qint32 paymentNumber, const TextTable &grid, int row)
{
    const QString code = grid.text(row, AllocationBlock::CodColumn);
    if (FindAllocation(allocations, code)) {
        allocations.edit();
    } else {
        const QString description = grid.text(row, AllocationBlock::DescrizioneColumn);
        allocations.addNew();
        allocations.set(u"RelNpag"_s, paymentNumber);
        allocations.set(u"Cod"_s, textOrNull(code));
        allocations.set(u"Descrizione"_s,
                        textOrNull(LeftCharacters(description, LedgerSize::Descrizione)));
    }
    allocations.set(u"Importo"_s, ImportoDaTesto(grid.text(row, AllocationBlock::ImportoColumn)));
    allocations.update();
}

void writeLedger(const ProgramValues &values, qint32 paymentNumber, const PaymentRecord &record,
                 const AmountChain &amounts, const TextTable &grid)
{
    const Database ledger = Database::open(LedgerPath(values));
    RecordSet payments = ledger.openRecordSet(u"SELECT * FROM Fatture WHERE AziProf = '"_s +
                                              KindCode(amounts.kind()) + u"' "_s);
    RecordSet allocations = OpenAllocations(ledger, paymentNumber);
    writePayment(payments, paymentNumber, record, amounts);
    for (int row = 1; row < grid.rows(); ++row)
        writeAllocation(allocations, paymentNumber, grid, row);
}

} // namespace

void SavePagamento(ProgramValues &values, qint32 paymentNumber, const PaymentRecord &record,
                   const AmountChain &amounts, const TextTable &grid)
{
    Naming(u"Pagamento"_s, QString::number(paymentNumber), [&] {
        writeLedger(values, paymentNumber, record, amounts, grid);

        constexpr qint16 noFunction = 0;
        values.MandateText = ComposeMandateNote(record.mandato, record.mandatoDell);
        ScriviVoceStringa(values, VoceMandato(values, paymentNumber), noFunction,
                          MandateDescription(paymentNumber, record.creditore), values.MandateText);
    });
}

} // namespace saldoro
