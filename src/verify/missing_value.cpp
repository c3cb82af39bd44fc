#include "verify/missing_value.h"

#include "common/date_text.h"
#include "common/errors.h"
#include "database/database.h"

#include <QRegularExpression>

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

QString fieldName(const QString &field)
{
    for (const QString &name : {u"Del"_s, u"Importo"_s, u"ImportoIVA"_s}) {
        if (name.compare(field, Qt::CaseInsensitive) == 0)
            return name;
    }
    throw refusal(u"Si possono impostare soltanto Del, Importo e ImportoIVA."_s, {}, field);
}

/** Exact, digit by digit: no way through a floating number. */
std::optional<Currency> amountOf(const QString &text)
{
    static const QRegularExpression notation(
        u"\\A([+-]?)([0-9]{1,3}(?:\\.[0-9]{3})+|[0-9]+)(?:,([0-9]{1,4}))?\\z"_s);
    const QRegularExpressionMatch match = notation.match(text);
    if (!match.hasMatch())
        return std::nullopt;
    constexpr int Decimals = 4;
    bool fits = false;
    const qint64 scaled = (match.captured(1) + match.captured(2).remove(u'.') +
                           match.captured(3).leftJustified(Decimals, u'0'))
                              .toLongLong(&fits);
    return fits ? std::optional(Currency::fromScaled(scaled)) : std::nullopt;
}

/** Four digits of the year: which century is meant is not for the program to say. */
std::optional<QDate> dayOf(const QString &text)
{
    static const QRegularExpression notation(u"\\A[0-9]{1,2}/[0-9]{1,2}/[0-9]{4}\\z"_s);
    const QDate day = notation.match(text).hasMatch() ? DataDaTesto(text) : QDate();
    return day.isValid() ? std::optional(day) : std::nullopt;
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

MissingValue ParseMissingValue(const QString &payment, const QString &field, const QString &value)
{
    MissingValue result;
    bool isNumber = false;
    result.payment = payment.toInt(&isNumber);
    if (!isNumber)
        throw refusal(u"Il numero del pagamento non è un numero intero."_s, payment, {});
    result.field = fieldName(field);
    if (result.field == "Del"_L1) {
        const std::optional<QDate> day = dayOf(value);
        if (!day)
            throw refusal(u"«"_s + value + u"» non è una data gg/mm/aaaa."_s, payment, field);
        result.value = *day;
        return result;
    }
    const std::optional<Currency> amount = amountOf(value);
    if (!amount)
        throw refusal(u"«"_s + value + u"» non è un importo come 1.234,56."_s, payment, field);
    result.value = *amount;
    return result;
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
