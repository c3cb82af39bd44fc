#include "store/ledger.h"

#include "common/amount_text.h"
#include "common/archive_folders.h"
#include "common/creditor_kind.h"

#include <QStringBuilder>

namespace saldoro {

using namespace Qt::StringLiterals;

namespace {

void appendEmptiable(TableDef &table, const QString &name, FieldType type, int size = 0)
{
    table.appendField(name, type, size);
    table.field(name).allowZeroLength = true;
}

} // namespace

TableDef FattureTable()
{
    TableDef table(u"Fatture"_s);
    table.appendField(u"AziProf"_s, FieldType::Text, 1);
    table.appendField(u"Npag"_s, FieldType::Long);
    table.appendField(u"Creditore"_s, FieldType::Text, LedgerSize::Creditore);
    appendEmptiable(table, u"NFat"_s, FieldType::Text, LedgerSize::NFat);
    appendEmptiable(table, u"Del"_s, FieldType::Date);
    appendEmptiable(table, u"Memo"_s, FieldType::Memo);
    appendEmptiable(table, u"Descrizione"_s, FieldType::Text, LedgerSize::Descrizione);
    for (const QString &amount :
         {u"Aliquota"_s, u"Importo"_s, u"ImportoIVA"_s, u"AliquotaRA"_s, u"ImportoPrest"_s,
          u"Contributo"_s, u"CassaPrev"_s, u"ImportoRA"_s, u"AltriImporti01"_s}) {
        table.appendField(amount, FieldType::Currency);
    }
    return table;
}

TableDef SpeseTable()
{
    TableDef table(u"Spese"_s);
    table.appendField(u"RelNpag"_s, FieldType::Long);
    table.appendField(u"Cod"_s, FieldType::Text, LedgerSize::Cod);
    table.appendField(u"Descrizione"_s, FieldType::Text, LedgerSize::Descrizione);
    table.appendField(u"Importo"_s, FieldType::Currency);
    return table;
}

Database CreateLedgerDatabase(const QString &projectFolder)
{
    const QString path = projectFolder % u'\\' % ArchiveFiles::Ledger;
    // The file is made and let go of, then opened as everyone else opens it: whatever stands in
    // the way of that shows here and not at the first payment.
    Database::create(path, ArchiveLocale.toString());
    Database ledger = Database::open(path);
    ledger.appendTableDef(FattureTable());
    ledger.appendTableDef(SpeseTable());
    return ledger;
}

RecordSet OpenAllocations(const Database &ledger, qint32 paymentNumber)
{
    return ledger.openRecordSet(u"SELECT * FROM Spese WHERE RelNpag = "_s +
                                QString::number(paymentNumber));
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

bool IsProfessional(const RecordSet &payments)
{
    return payments.field(u"AziProf"_s).storedBytes() ==
           KindCode(CreditorKind::Professional).toLatin1();
}

Currency OtherAmounts(const RecordSet &payments)
{
    if (!IsProfessional(payments))
        return {};
    return payments.field(u"AltriImporti01"_s).currencyOrNone().value_or(Currency());
}

Currency GrossAmount(const RecordSet &payments)
{
    return payments.field(u"Importo"_s).currency() + payments.field(u"ImportoIVA"_s).currency() +
           OtherAmounts(payments);
}

} // namespace saldoro
