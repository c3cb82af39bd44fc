#include "verify/checks.h"

#include <algorithm>
#include <map>

namespace saldoro {

namespace {

using namespace Qt::StringLiterals;

/** Payments by number; a number may have several. */
using Numbers = std::map<qint32, QList<PaymentRow>>;

Numbers numbersOf(const QList<PaymentRow> &payments)
{
    Numbers numbers;
    for (const PaymentRow &payment : payments) {
        if (payment.number.value)
            numbers[*payment.number.value].append(payment);
    }
    return numbers;
}

void addNumbering(const QString &place, const QString &problem, const QString &remedy,
                  Findings &findings)
{
    findings.append({FindingGroup::Numbering, place, problem, remedy});
}

void checkDuplicates(const Numbers &numbers, Findings &findings)
{
    for (const auto &[number, payments] : numbers) {
        if (payments.size() < 2)
            continue;
        QStringList rows;
        for (const PaymentRow &payment : payments)
            rows.append(QString::number(payment.row));
        addNumbering(
            u"Pagamento "_s + QString::number(number),
            u"il numero è usato da %1 pagamenti (righe %2): ad aprirlo si apre sempre il primo, ad "
            "eliminarlo si tolgono tutti, e i conti di spesa sono in comune."_s.arg(payments.size())
                .arg(rows.join(u", "_s)),
            u"non modificare né eliminare questi pagamenti prima di aver dato a ciascuno un suo "
            "numero, con l'aiuto dell'assistenza."_s,
            findings);
    }
}

/** "Riga 3", "Righe da 3 a 5". */
QString span(const QString &one, const QString &several, qint64 first, qint64 last)
{
    return first == last ? one + u' ' + QString::number(first)
                         : several + u" da %1 a %2"_s.arg(first).arg(last);
}

/** A run of numbers that no payment has. */
void addGap(qint64 first, qint64 last, const PaymentRow &next, Findings &findings)
{
    addNumbering(span(u"Numero"_s, u"Numeri"_s, first, last),
                 (first == last ? u"nessun pagamento ha questo numero"_s
                                : u"nessun pagamento ha questi numeri"_s) +
                     u": l'elenco salta al pagamento %1."_s.arg(*next.number.value),
                 u"per rimettere in ordine i numeri rivolgersi all'assistenza."_s, findings);
}

void checkGaps(const Numbers &numbers, Findings &findings)
{
    qint64 expected = 1;
    for (const auto &[number, payments] : numbers) {
        if (number < 1) {
            addNumbering(PaymentName(payments.first()),
                         u"il numero è minore di 1: nessuna riga dell'elenco "
                         "può aprire il pagamento."_s,
                         u"dare al pagamento un numero libero, con l'aiuto dell'assistenza."_s,
                         findings);
            continue;
        }
        if (number > expected)
            addGap(expected, qint64{number} - 1, payments.first(), findings);
        expected = qint64{number} + 1;
    }
}

/** A run of rows of the list that stand for other numbers than those of their payments. */
void addShifted(const PaymentRow &first, const PaymentRow &last, Findings &findings)
{
    addNumbering(
        span(u"Riga"_s, u"Righe"_s, first.row, last.row),
        u"qui l'elenco mostra "_s +
            span(u"il pagamento"_s, u"i pagamenti"_s, *first.number.value, *last.number.value) +
            u", ma «Modifica» ed «Elimina» prendono come numero quello della riga: lavorano su un "
            "altro pagamento o su nessuno."_s,
        u"confrontare il numero della riga con la colonna Nr prima di modificare o eliminare; per "
        "rimettere in ordine i numeri rivolgersi all'assistenza."_s,
        findings);
}

/** Row and number have to be equal all through the list. Where a payment without number belongs is
 *  not known before it has one. */
void checkRows(const QList<PaymentRow> &payments, Findings &findings)
{
    const auto isNumbered = [](const PaymentRow &payment) {
        return payment.number.value.has_value();
    };
    if (!std::all_of(payments.begin(), payments.end(), isNumbered))
        return;
    const auto isInPlace = [](const PaymentRow &payment) {
        return *payment.number.value == payment.row;
    };
    for (auto first = payments.begin();;) {
        first = std::find_if_not(first, payments.end(), isInPlace);
        if (first == payments.end())
            return;
        const auto end = std::find_if(first, payments.end(), isInPlace);
        addShifted(*first, *(end - 1), findings);
        first = end;
    }
}

/** A new payment gets the number of rows and 1, whether or not that is free. */
void checkNextNumber(const Numbers &numbers, qsizetype rows, Findings &findings)
{
    const auto taken = numbers.find(static_cast<qint32>(rows + 1));
    if (taken == numbers.end())
        return;
    addNumbering(
        PaymentName(taken->second.first()),
        u"«Nuovo» userà il numero %1, che è di questo pagamento: se il tipo di creditore è lo "
        "stesso il pagamento viene aperto e riscritto, altrimenti il numero diventa doppio."_s.arg(
            rows + 1),
        u"non inserire pagamenti nuovi prima che l'assistenza abbia rimesso in ordine i numeri."_s,
        findings);
}

} // namespace

void CheckNumbering(const ProjectData &data, Findings &findings)
{
    if (!data.payments)
        return;
    const Numbers numbers = numbersOf(*data.payments);
    checkDuplicates(numbers, findings);
    checkGaps(numbers, findings);
    checkRows(*data.payments, findings);
    checkNextNumber(numbers, data.payments->size(), findings);
}

} // namespace saldoro
