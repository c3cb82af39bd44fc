#include "verify/project_rows.h"

#include "common/creditor_kind.h"
#include "common/errors.h"
#include "common/text_cut.h"
#include "store/ledger.h"
#include "store/needed_values.h"

namespace saldoro {

using namespace Qt::StringLiterals;

namespace {

/** The value, if there is one of that type. */
template <typename T>
std::optional<T> readable(const FieldValue &field, T (FieldValue::*read)() const)
{
    try {
        return field.isNull() ? std::nullopt : std::optional((field.*read)());
    } catch (const DatabaseError &) {
        return std::nullopt;
    }
}

/** What the value should be; empty when it is. */
QString expectedInstead(const FieldValue &value, FieldType type)
{
    switch (type) {
    case FieldType::Date:
        return readable(value, &FieldValue::date) ? QString() : u"una data"_s;
    case FieldType::Currency:
        return readable(value, &FieldValue::currency) ? QString() : u"un importo"_s;
    case FieldType::Integer:
    case FieldType::Long:
        return readable(value, &FieldValue::integer) ? QString() : u"un numero intero"_s;
    default:
        return {};
    }
}

QString fromAssistance(const QString &what)
{
    return what + u", con l'aiuto dell'assistenza."_s;
}

/** The values of the current record that are not what the program reads them as. */
void findWrongValues(const RecordSet &records, const TableDef &table, const QString &name,
                     Findings &findings)
{
    for (const FieldDef &field : table.fields()) {
        const FieldValue value = records.field(field.name);
        const QString expected = value.isNull() ? QString() : expectedInstead(value, field.type);
        if (!expected.isEmpty())
            findings.append(
                {FindingGroup::Values, name + u", "_s + table.name() + u'.' + field.name,
                 u"il valore «%1» non è %2: il programma si ferma quando lo legge."_s.arg(
                     LeftCharacters(value.text(), 40), expected),
                 fromAssistance(u"correggere il valore nell'archivio"_s)});
    }
}

/** How the clerk can give a payment the value that it lacks. */
QString remedyOfNull(const PaymentRow &payment, const QString &field)
{
    if (!payment.number || field == "Creditore"_L1 || field == "AziProf"_L1)
        return fromAssistance(u"completare il valore nell'archivio"_s);
    if (field == "Del"_L1 || field == "Importo"_L1 || field == "ImportoIVA"_L1)
        return u"impostarlo con saldoro-archivio imposta CARTELLA %1 %2 %3"_s.arg(
            QString::number(*payment.number), field,
            field == "Del"_L1 ? u"gg/mm/aaaa"_s : u"1.234,56"_s);
    return u"aprire il pagamento e confermarlo: i campi vuoti diventano zero."_s;
}

void findNulls(const RecordSet &records, const TableDef &table, const PaymentRow &payment,
               Findings &findings)
{
    for (const FieldDef &field : table.fields()) {
        if (!records.field(field.name).isNull())
            continue;
        const QString consequence =
            ConsequenceOfNull(table.name(), field.name, payment.kind.value_or(QString()));
        if (!consequence.isEmpty())
            findings.append({FindingGroup::Payments, payment.name,
                             u"manca il valore di %1: "_s.arg(field.name) + consequence,
                             remedyOfNull(payment, field.name)});
    }
}

void findWrongKind(const PaymentRow &payment, Findings &findings)
{
    if (payment.kind && !KindOfCode(*payment.kind))
        findings.append(
            {FindingGroup::Payments, payment.name,
             u"il tipo di creditore (AziProf) è «"_s + *payment.kind +
                 u"» e non A (azienda) o P (professionista): «Modifica» non apre il pagamento e i "
                 "documenti di chiusura lo tralasciano o lo contano fra gli altri."_s,
             fromAssistance(u"scrivere A o P nel campo AziProf"_s)});
}

std::optional<Currency> grossAmount(const RecordSet &payment, const QString &name,
                                    Findings &findings)
{
    try {
        return GrossAmount(payment);
    } catch (const DatabaseError &) {
        return std::nullopt; // one of the values is missing or wrong
    } catch (const OverflowError &) {
        findings.append(
            {FindingGroup::Payments, name,
             u"la somma degli importi supera il massimo che il programma può tenere: la schermata "
             "principale si ferma a questa riga."_s,
             fromAssistance(u"correggere gli importi nell'archivio"_s)});
        return std::nullopt;
    }
}

QString paymentName(const PaymentRow &payment, const QString &creditor)
{
    return (payment.number ? u"Pagamento "_s + QString::number(*payment.number)
                           : u"Pagamento senza numero"_s) +
           u" (riga "_s + QString::number(payment.row) +
           (creditor.isEmpty() ? u")"_s : u", "_s + creditor + u')');
}

} // namespace

QList<PaymentRow> ReadPayments(RecordSet &records, const TableDef &table, Findings &findings)
{
    QList<PaymentRow> rows;
    for (; !records.eof(); records.moveNext()) {
        PaymentRow row;
        row.row = static_cast<int>(rows.size()) + 1;
        row.number = readable(records.field(u"Npag"_s), &FieldValue::integer);
        row.kind = readable(records.field(u"AziProf"_s), &FieldValue::text);
        row.name = paymentName(row, records.field(u"Creditore"_s).textOrEmpty());
        row.gross = grossAmount(records, row.name, findings);
        findWrongValues(records, table, row.name, findings);
        findNulls(records, table, row, findings);
        findWrongKind(row, findings);
        rows.append(row);
    }
    return rows;
}

QList<AllocationRow> ReadAllocations(RecordSet &records, const TableDef &table, Findings &findings)
{
    QList<AllocationRow> rows;
    for (; !records.eof(); records.moveNext()) {
        AllocationRow row;
        row.payment = readable(records.field(u"RelNpag"_s), &FieldValue::integer);
        row.code = readable(records.field(u"Cod"_s), &FieldValue::text);
        row.amount = readable(records.field(u"Importo"_s), &FieldValue::currency);
        row.name = u"Conto di spesa alla riga %1 (pagamento %2, codice %3)"_s.arg(
            QString::number(rows.size() + 1),
            row.payment ? QString::number(*row.payment) : u"mancante"_s,
            row.code.value_or(u"mancante"_s));
        findWrongValues(records, table, row.name, findings);
        if (records.field(u"Importo"_s).isNull())
            findings.append({FindingGroup::Allocations, row.name,
                             u"manca l'importo: "_s + ConsequenceOfNull(table.name(), u"Importo"_s),
                             fromAssistance(u"scrivere l'importo nell'archivio"_s)});
        rows.append(row);
    }
    return rows;
}

QList<CostItem> ReadBudget(RecordSet &records, const TableDef &table, Findings &findings)
{
    QList<CostItem> items;
    for (; !records.eof(); records.moveNext()) {
        items.append({readable(records.field(u"Voce"_s), &FieldValue::text),
                      readable(records.field(u"Descri"_s), &FieldValue::text)});
        findWrongValues(records, table, CostItemName(items.last(), items.size() - 1), findings);
    }
    return items;
}

QString CostItemName(const CostItem &item, qsizetype place)
{
    return u"Voce %1 (riga %2)"_s.arg(item.code.value_or(u"senza codice"_s),
                                      QString::number(place + 1));
}

} // namespace saldoro
