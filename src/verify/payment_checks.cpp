#include "common/errors.h"
#include "verify/checks.h"

#include <array>
#include <limits>

namespace saldoro {

namespace {

using namespace Qt::StringLiterals;

void add(const PaymentRow &payment, const QString &problem, const QString &remedy,
         Findings &findings)
{
    findings.append({FindingGroup::Payments, PaymentName(payment), problem, remedy});
}

void addMissing(const PaymentRow &payment, const QString &field, const QString &example,
                Findings &findings)
{
    const QString problem = u"manca il valore di "_s + field +
                            u": la schermata principale si ferma a questa riga e non si apre."_s;
    if (example.isEmpty() || !payment.number.value)
        add(payment, problem, u"completare il valore nell'archivio, con l'aiuto dell'assistenza."_s,
            findings);
    else
        add(payment, problem,
            u"eseguire di nuovo il controllo con --imposta %1 %2 %3"_s.arg(
                QString::number(*payment.number.value), field, example),
            findings);
}

void checkValues(const PaymentRow &payment, Findings &findings)
{
    if (payment.number.missing)
        addMissing(payment, u"Npag"_s, {}, findings);
    if (payment.creditor.missing)
        addMissing(payment, u"Creditore"_s, {}, findings);
    if (payment.dayMissing)
        addMissing(payment, u"Del"_s, u"gg/mm/aaaa"_s, findings);
    if (payment.amount.missing)
        addMissing(payment, u"Importo"_s, u"1.234,56"_s, findings);
    if (payment.vat.missing)
        addMissing(payment, u"ImportoIVA"_s, u"1.234,56"_s, findings);
}

void checkKind(const PaymentRow &payment, Findings &findings)
{
    const QString kind = payment.kind.value.value_or(QString());
    if (kind == "A"_L1 || kind == "P"_L1)
        return;
    add(payment,
        u"il tipo di creditore (AziProf) è «"_s + kind +
            u"» e non A (azienda) o P (professionista): «Modifica» non apre il pagamento e i "
            "documenti di chiusura lo tralasciano o lo contano fra gli altri."_s,
        u"scrivere A o P nel campo AziProf, con l'aiuto dell'assistenza."_s, findings);
}

/** Sum of what can be read; throws OverflowError. */
Currency grossAmount(const PaymentRow &payment)
{
    const Currency gross =
        payment.amount.value.value_or(Currency()) + payment.vat.value.value_or(Currency());
    return IsProfessional(payment) ? gross + payment.other.value.value_or(Currency()) : gross;
}

/** All payments of a kind, as the closing documents take them. */
struct KindTotal
{
    QString kind;
    QString name;
    int count = 0;
    Currency total;
    bool tooLarge = false;

    void add(const PaymentRow &payment)
    {
        if (ComparedCode(payment.kind.value.value_or(QString())) != ComparedCode(kind))
            return;
        ++count;
        try {
            total += grossAmount(payment);
        } catch (const OverflowError &) {
            tooLarge = true;
        }
    }
};

void checkGross(const PaymentRow &payment, Findings &findings)
{
    try {
        grossAmount(payment);
    } catch (const OverflowError &) {
        add(payment,
            u"la somma degli importi supera il massimo che il programma può tenere: la schermata "
            "principale si ferma a questa riga."_s,
            u"correggere gli importi nell'archivio, con l'aiuto dell'assistenza."_s, findings);
    }
}

void checkTotal(const KindTotal &kind, Findings &findings)
{
    if (kind.count > std::numeric_limits<qint16>::max())
        findings.append({FindingGroup::Payments, kind.name,
                         u"sono %1, più dei 32.767 che i documenti possono contare: la chiusura "
                         "della schermata principale si ferma."_s.arg(kind.count),
                         u"rivolgersi all'assistenza per dividere il registro."_s});
    if (kind.tooLarge)
        findings.append({FindingGroup::Payments, kind.name,
                         u"la somma supera il massimo che il programma può tenere: la chiusura "
                         "della schermata principale si ferma."_s,
                         u"correggere gli importi troppo grandi."_s});
}

} // namespace

void CheckPayments(const ProjectData &data, Findings &findings)
{
    if (!data.payments)
        return;
    std::array<KindTotal, 2> kinds{{{u"A"_s, u"Pagamenti alle aziende"_s, 0, {}, false},
                                    {u"P"_s, u"Pagamenti ai professionisti"_s, 0, {}, false}}};
    for (const PaymentRow &payment : *data.payments) {
        checkValues(payment, findings);
        checkKind(payment, findings);
        checkGross(payment, findings);
        for (KindTotal &kind : kinds)
            kind.add(payment);
    }
    for (const KindTotal &kind : kinds)
        checkTotal(kind, findings);
}

} // namespace saldoro
