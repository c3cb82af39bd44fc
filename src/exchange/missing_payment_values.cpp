#include "exchange/missing_payment_values.h"

#include "common/errors.h"
#include "database/database.h"
#include "exchange/archive_tables.h"
#include "exchange/cell_values.h"
#include "exchange/made_files.h"
#include "store/payment_numbers.h"
#include "store/project_open_mark.h"
#include "store/table_definitions.h"

#include <QFileInfo>

namespace saldoro {

using namespace Qt::StringLiterals;

namespace {

SaldoroError refusal(const QString &problem)
{
    return SaldoroError(problem, u"Nessun valore è stato cambiato."_s);
}

NewValue valueOf(const QString &text, FieldType type)
{
    QString problem;
    const auto value = SureValueOfCell(text, type, Notation::Italian, problem);
    if (!value)
        throw refusal(problem);
    return *value;
}

/** Makes the one payment of that number the current record. */
void findPayment(RecordSet &payments, const QString &word)
{
    const auto number = WholeOf(word);
    if (!number)
        throw refusal(u"Il numero del pagamento non è un numero intero."_s);
    if (!FindPayment(payments, *number))
        throw refusal(u"Nessun pagamento ha questo numero."_s);
    payments.findNext(PaymentCriterion(*number));
    if (!payments.noMatch())
        throw refusal(u"Più di un pagamento ha questo numero: non è chiaro quale cambiare."_s);
    FindPayment(payments, *number);
}

void setValue(RecordSet &payments, const QString &field, const QString &text)
{
    if (const QStringList settable = SettablePaymentFields();
        !settable.contains(field, Qt::CaseInsensitive))
        throw refusal(u"Si possono impostare soltanto %1, %2 e %3."_s.arg(settable[0], settable[1],
                                                                          settable[2]));
    const QList<FieldDef> fields = TableNamed(u"Fatture"_s)->definition.fields();
    const NewValue value = valueOf(text, fields[IndexOfField(fields, field)].type);
    if (!payments.field(field).isNull())
        throw refusal(u"Il campo ha già un valore, che non viene sostituito."_s);
    payments.edit();
    payments.set(field, value);
    payments.update();
}

} // namespace

QString SetPaymentValues(const QString &ledger, const QStringList &words)
{
    RequireClosed(QFileInfo(ledger).path()); // a form would write what it has loaded
    const Database database = Database::open(ledger);
    Transaction transaction(database); // from here on nobody else changes what the copy holds
    QString copy = database.backUpBeside();
    MadeFiles made; // goes when nothing is changed
    made.add(copy);
    RecordSet payments = database.openRecordSet(u"SELECT * FROM Fatture"_s);
    if (!database.triggersOf(u"Fatture"_s).isEmpty())
        throw refusal(u"L'archivio ha regole proprie (trigger) che cambiano ciò che si scrive."_s);
    for (qsizetype at = 0; at < words.size(); at += 3) {
        WithDetail(Detail::Field, words[at + 1], [&] {
            WithDetail(Detail::Payment, words[at], [&] {
                findPayment(payments, words[at]);
                setValue(payments, words[at + 1], words[at + 2]);
            });
        });
    }
    transaction.commit();
    made.keep();
    return copy;
}

QStringList PaymentsWithoutDay(const QString &ledger)
{
    RecordSet payments = Database::open(ledger).openRecordSet(u"SELECT * FROM Fatture"_s);
    QStringList numbers;
    for (; !payments.eof(); payments.moveNext()) {
        if (payments.field(u"Del"_s).isNull() && !payments.field(u"Npag"_s).isNull())
            numbers.append(payments.field(u"Npag"_s).text());
    }
    return numbers;
}

} // namespace saldoro
