#include "verify/checks.h"

#include <algorithm>
#include <map>

namespace saldoro {

using namespace Qt::StringLiterals;

namespace {

void checkDuplicates(const std::map<qint32, QStringList> &rows, Findings &findings)
{
    for (const auto &[number, its] : rows) {
        if (its.size() < 2)
            continue;
        findings.append(
            {FindingGroup::Numbering, u"Pagamento "_s + QString::number(number),
             u"il numero è usato da %1 pagamenti (righe %2): ad aprirlo si apre sempre il primo, "
             u"ad "
             "eliminarlo si tolgono tutti, e i conti di spesa sono in comune."_s.arg(
                 QString::number(its.size()), its.join(u", "_s)),
             u"non modificare né eliminare questi pagamenti prima di aver dato a ciascuno un suo "
             "numero, con l'aiuto dell'assistenza."_s});
    }
}

/** "Riga 3", "Righe da 3 a 5". */
QString span(const QString &one, const QString &several, int first, int last)
{
    return first == last ? one + u' ' + QString::number(first)
                         : several + u" da %1 a %2"_s.arg(first).arg(last);
}

bool isInPlace(const PaymentRow &payment)
{
    return !payment.number || *payment.number == payment.row;
}

/** Runs of rows of the list that stand for other numbers than those of their payments. */
void checkRows(const QList<PaymentRow> &payments, Findings &findings)
{
    for (auto first = payments.begin();;) {
        first = std::find_if_not(first, payments.end(), isInPlace);
        if (first == payments.end())
            return;
        const auto end = std::find_if(first, payments.end(), isInPlace);
        const PaymentRow &last = *(end - 1);
        findings.append(
            {FindingGroup::Numbering, span(u"Riga"_s, u"Righe"_s, first->row, last.row),
             u"qui l'elenco mostra "_s +
                 span(u"il pagamento"_s, u"i pagamenti"_s, *first->number, *last.number) +
                 u", ma «Modifica» ed «Elimina» prendono come numero quello della riga: lavorano "
                 "su un altro pagamento o su nessuno."_s,
             u"confrontare il numero della riga con la colonna Nr prima di modificare o eliminare; "
             "per rimettere in ordine i numeri rivolgersi all'assistenza."_s});
        first = end;
    }
}

/** A new payment gets the number of rows and 1, whether or not that is free. */
void checkNextNumber(const QList<PaymentRow> &payments, Findings &findings)
{
    const qsizetype next = payments.size() + 1;
    const auto taken = std::find_if(payments.begin(), payments.end(),
                                    [next](const auto &payment) { return payment.number == next; });
    if (taken != payments.end())
        findings.append(
            {FindingGroup::Numbering, taken->name,
             u"«Nuovo» userà il numero %1, che è di questo pagamento: se il tipo di creditore è lo "
             "stesso il pagamento viene aperto e riscritto, altrimenti il numero diventa doppio."_s
                 .arg(next),
             u"non inserire pagamenti nuovi prima che l'assistenza abbia rimesso in ordine i "
             "numeri."_s});
}

} // namespace

void CheckNumbering(const QList<PaymentRow> &payments, Findings &findings)
{
    std::map<qint32, QStringList> rows;
    for (const PaymentRow &payment : payments) {
        if (payment.number)
            rows[*payment.number].append(QString::number(payment.row));
    }
    checkDuplicates(rows, findings);
    checkRows(payments, findings);
    checkNextNumber(payments, findings);
}

} // namespace saldoro
