#include "verify/checks.h"

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
            u"il numero è usato da %1 pagamenti (righe %2): «Modifica» apre sempre il primo, "
            "«Elimina» li toglie tutti e i conti di spesa sono in comune."_s.arg(payments.size())
                .arg(rows.join(u", "_s)),
            u"non modificare né eliminare questi pagamenti prima di aver dato a ciascuno un suo "
            "numero, con l'aiuto dell'assistenza."_s,
            findings);
    }
}

/** A run of numbers that no payment has. */
void addGap(qint64 first, qint64 last, const PaymentRow &next, Findings &findings)
{
    const QString missing = first == last ? u"Numero "_s + QString::number(first)
                                          : u"Numeri da %1 a %2"_s.arg(first).arg(last);
    addNumbering(
        missing,
        u"nessun pagamento ha questi numeri. La riga %1 dell'elenco mostra il pagamento %2, ma "
        "«Modifica» ed «Elimina» prendono come numero quello della riga: su questa riga e sulle "
        "seguenti lavorano su un altro pagamento o su nessuno."_s.arg(next.row)
            .arg(*next.number.value),
        u"confrontare il numero della riga con la colonna Nr prima di modificare o eliminare; "
        "per rimettere in ordine i numeri rivolgersi all'assistenza."_s,
        findings);
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
    checkNextNumber(numbers, data.payments->size(), findings);
}

} // namespace saldoro
