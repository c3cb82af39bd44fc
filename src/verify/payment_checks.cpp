#include "verify/payment_checks.h"

#include "common/creditor_kind.h"
#include "store/payment_numbers.h"
#include "store/table_definitions.h"

#include <algorithm>
#include <iterator>
#include <map>

namespace saldoro {

using namespace Qt::StringLiterals;

namespace {

/** Fields of a payment that the program reads without a substitute for a null. */
struct NeededFields
{
    QStringList fields;
    bool professionalsOnly;
    QString consequence;
};

const QList<NeededFields> &neededFields()
{
    static const QList<NeededFields> needs{
        {NeededPaymentFields(), false,
         u"la schermata principale si ferma a questa riga e non si apre."_s},
        {{u"AziProf"_s},
         false,
         u"«Modifica» su questo pagamento fa terminare il programma e i documenti di chiusura lo "
         "tralasciano."_s},
        {u"ImportoPrest Contributo CassaPrev ImportoRA"_s.split(u' '), true,
         StopsClosing.toString()}};
    return needs;
}

/** How the clerk can give a payment the value that it lacks. */
QString remedyOfNull(const CheckedRow &payment, const QString &field)
{
    if (!payment.number || field == "Creditore"_L1 || field == "AziProf"_L1)
        return InTheArchive.toString();
    if (SettablePaymentFields().contains(field)) {
        const bool isDay = field == "Del"_L1;
        return u"impostarlo con %1saldoro-archivio imposta CARTELLA %2 %3 %4"_s.arg(
            isDay ? u"«Controlla» di Saldoro - Appalti, o con "_s : QString(),
            QString::number(*payment.number), field, isDay ? u"gg/mm/aaaa"_s : u"1.234,56"_s);
    }
    return u"aprire il pagamento e confermarlo: i campi vuoti diventano zero."_s;
}

/** "Riga 3", "Righe da 3 a 5". */
QString span(const QString &one, const QString &several, int first, int last)
{
    return first == last ? one + u' ' + QString::number(first)
                         : several + u" da %1 a %2"_s.arg(first).arg(last);
}

bool isInPlace(const CheckedRow &payment)
{
    return !payment.number || *payment.number == NumberOfListRow(payment.row);
}

Finding numberingFinding(const CheckedRow &payment, const QString &subject, const QString &problem)
{
    Finding finding = FindingAt(payment, FindingGroup::Numbering, problem,
                                u"confrontare il numero della riga con la colonna Nr prima di "
                                "modificare o eliminare, e far rimettere in ordine i numeri "
                                "dall'assistenza."_s);
    finding.subject = subject;
    return finding;
}

using PaymentsByNumber = std::map<qint32, QList<const CheckedRow *>>;

void checkUnique(const PaymentsByNumber &payments, Findings &findings)
{
    for (const auto &[number, its] : payments) {
        if (its.size() > 1)
            findings.append(numberingFinding(
                *its.last(), u"Pagamento %1"_s.arg(number),
                u"il numero è usato da %1 pagamenti (dalla riga %2): ad aprirlo si apre sempre il "
                "primo, ad eliminarlo si tolgono tutti, e i conti di spesa sono in comune."_s
                    .arg(its.size())
                    .arg(its.first()->row)));
    }
}

/** Finds runs of rows of the list that stand for other numbers than those of their payments. */
void checkPlaces(const QList<CheckedRow> &payments, Findings &findings)
{
    for (auto end = payments.begin();;) {
        const auto first = std::find_if_not(end, payments.end(), isInPlace);
        if (first == payments.end())
            return;
        end = std::find_if(first, payments.end(), isInPlace);
        const CheckedRow &last = *std::prev(end);
        findings.append(numberingFinding(
            *first, span(u"Riga"_s, u"Righe"_s, first->row, last.row),
            u"qui l'elenco mostra %1, ma «Modifica» ed «Elimina» prendono come numero quello della "
            "riga: lavorano su un altro pagamento o su nessuno."_s.arg(
                span(u"il pagamento"_s, u"i pagamenti"_s, *first->number, *last.number))));
    }
}

} // namespace

void CheckPayments(const CheckedProject &project, Findings &findings)
{
    for (const CheckedRow &payment : project.payments) {
        const auto add = [&](const QString &problem, QStringView remedy) {
            findings.append(FindingAt(payment, FindingGroup::Payments, problem, remedy));
        };
        if (payment.isBeyondRange)
            add(u"la somma degli importi supera il massimo che il programma può tenere: la "
                "schermata principale si ferma a questa riga."_s,
                InTheArchive);
        for (const NeededFields &need : neededFields()) {
            if (need.professionalsOnly && payment.kind != KindCode(CreditorKind::Professional))
                continue;
            for (const QString &field : need.fields) {
                if (payment.isNull(field))
                    add(u"manca il valore di %1: "_s.arg(field) + need.consequence,
                        remedyOfNull(payment, field));
            }
        }
        if (payment.kind && !KindOfCode(*payment.kind))
            add(u"il tipo di creditore (AziProf) è «%1» e non A (azienda) o P (professionista): "
                "«Modifica» non apre il pagamento e i documenti di chiusura lo tralasciano o lo "
                "contano fra gli altri."_s.arg(*payment.kind),
                InTheArchive);
    }
}

void CheckNumbering(const CheckedProject &project, Findings &findings)
{
    PaymentsByNumber byNumber;
    for (const CheckedRow &payment : project.payments) {
        if (payment.number)
            byNumber[*payment.number].append(&payment);
    }
    checkUnique(byNumber, findings);
    checkPlaces(project.payments, findings);
    const auto taken = byNumber.find(NextPaymentNumber(project.payments.size()));
    if (taken == byNumber.end())
        return;
    const CheckedRow &payment = *taken->second.first();
    findings.append(numberingFinding(
        payment, payment.name(),
        u"«Nuovo» userà il numero %1, che è di questo pagamento: se il tipo di creditore è lo "
        "stesso il pagamento viene aperto e riscritto, altrimenti il numero diventa doppio."_s.arg(
            taken->first)));
}

} // namespace saldoro
