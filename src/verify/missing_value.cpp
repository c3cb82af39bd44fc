#include "verify/missing_value.h"

#include "common/errors.h"
#include "database/database.h"

#include <algorithm>
#include <array>
#include <set>
#include <utility>

namespace saldoro {

namespace {

using namespace Qt::StringLiterals;

SaldoroError refusal(const QString &problem, const QString &payment, const QString &field)
{
    SaldoroError error(problem, u"Nessun valore è stato cambiato."_s);
    error.addDetail(u"Pagamento"_s, payment);
    error.addDetail(u"Campo"_s, field);
    return error;
}

/** Makes the one payment of that number the current record, with nothing in the field. */
void findPayment(RecordSet &payments, const MissingValue &wanted)
{
    const QString number = QString::number(wanted.payment);
    const QString criterion = u"Npag = "_s + number;
    payments.findFirst(criterion);
    if (payments.noMatch())
        throw refusal(u"Nessun pagamento ha questo numero."_s, number, wanted.field);
    payments.findNext(criterion);
    if (!payments.noMatch())
        throw refusal(u"Più di un pagamento ha questo numero: non è chiaro quale cambiare."_s,
                      number, wanted.field);
    payments.findFirst(criterion);
    if (!payments.field(wanted.field).isNull())
        throw refusal(u"Il campo ha già un valore, che non viene sostituito."_s, number,
                      wanted.field);
}

/** Of two values for one field the second would find it filled. */
void refuseRepeated(const QList<MissingValue> &values)
{
    std::set<std::pair<qint32, QString>> known;
    for (const MissingValue &value : values) {
        if (!known.emplace(value.payment, value.field).second)
            throw refusal(u"Lo stesso campo è indicato due volte."_s,
                          QString::number(value.payment), value.field);
    }
}

void writeValue(RecordSet &payments, const MissingValue &value)
{
    payments.findFirst(u"Npag = "_s + QString::number(value.payment));
    payments.edit();
    payments.set(value.field, value.value);
    payments.update();
}

} // namespace

const SettableField *SettableFieldNamed(const QString &name)
{
    static const std::array<SettableField, 3> fields{{{u"Del"_s, u"gg/mm/aaaa"_s},
                                                      {u"Importo"_s, u"1.234,56"_s},
                                                      {u"ImportoIVA"_s, u"1.234,56"_s}}};
    const auto *found = std::find_if(fields.begin(), fields.end(), [&](const SettableField &field) {
        return field.name.compare(name, Qt::CaseInsensitive) == 0;
    });
    return found == fields.end() ? nullptr : found;
}

QString SetMissingValues(const QString &ledger, const QList<MissingValue> &values)
{
    refuseRepeated(values);
    const Database database = Database::open(ledger);
    RecordSet payments = database.openRecordSet(u"SELECT * FROM Fatture"_s);
    for (const MissingValue &value : values)
        findPayment(payments, value);
    QString copy = database.backUpBeside();
    int written = 0;
    try {
        for (const MissingValue &value : values) {
            writeValue(payments, value);
            ++written;
        }
    } catch (SaldoroError &error) {
        error.addDetail(u"Valori già impostati"_s, QString::number(written));
        error.addDetail(u"Copia del registro com'era"_s, copy);
        throw;
    }
    return copy;
}

} // namespace saldoro
