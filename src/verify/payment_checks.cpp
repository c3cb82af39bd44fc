#include "common/errors.h"
#include "verify/checks.h"

#include <array>
#include <limits>
#include <map>
#include <utility>

namespace saldoro {

namespace {

using namespace Qt::StringLiterals;

void add(const PaymentRow &payment, const QString &problem, const QString &remedy,
         Findings &findings)
{
    findings.append({FindingGroup::Payments, PaymentName(payment), problem, remedy});
}

/** How the clerk gets at a payment to complete it. */
enum class Reach
{
    Form,   ///< by its row in the list; by --imposta as well
    Number, ///< by --imposta alone: no row of the list opens it
    None    ///< it has no number, or shares it
};

Reach reachOf(const PaymentRow &payment, const std::map<qint32, int> &counts, qsizetype rows)
{
    if (!payment.number.value || counts.at(*payment.number.value) > 1)
        return Reach::None;
    const bool isRow = *payment.number.value >= 1 && *payment.number.value <= rows;
    return isRow ? Reach::Form : Reach::Number;
}

QString fromAssistance()
{
    return u"completare il valore nell'archivio, con l'aiuto dell'assistenza."_s;
}

/** A field without which the payments list can't be filled. */
struct ListedField
{
    QStringView name;
    QStringView example; ///< of a value for --imposta; empty where that does not set the field
};

constexpr std::array<ListedField, 5> ListedFields{{{u"Npag", u""},
                                                   {u"Creditore", u""},
                                                   {u"Del", u"gg/mm/aaaa"},
                                                   {u"Importo", u"1.234,56"},
                                                   {u"ImportoIVA", u"1.234,56"}}};

void checkListedFields(const PaymentRow &payment, Reach reach, Findings &findings)
{
    for (const auto &[name, example] : ListedFields) {
        if (!payment.nulls.contains(name))
            continue;
        const bool canBeSet = reach != Reach::None && !example.isEmpty();
        add(payment,
            u"manca il valore di %1: la schermata principale si ferma a questa riga e non si apre."_s
                .arg(name),
            canBeSet ? u"eseguire di nuovo il controllo con --imposta %1 %2 %3"_s.arg(
                           QString::number(*payment.number.value), name, example)
                     : fromAssistance(),
            findings);
    }
}

/** What the statement of a professional shows besides, with the names that the form gives it. */
constexpr std::array<std::pair<QStringView, QStringView>, 4> StatementFields{
    {{u"ImportoPrest", u"Importo Prestazione"},
     {u"Contributo", u"Contributo"},
     {u"CassaPrev", u"Cassa Previdenza"},
     {u"ImportoRA", u"Importo R.A."}}};

void checkStatementFields(const PaymentRow &payment, Reach reach, Findings &findings)
{
    if (!IsProfessional(payment))
        return;
    QStringList missing;
    for (const auto &[name, label] : StatementFields) {
        if (payment.nulls.contains(name))
            missing.append(label.toString());
    }
    if (missing.isEmpty())
        return;
    add(payment,
        u"manca il valore di "_s + missing.join(u", "_s) +
            u": la chiusura della schermata principale si ferma senza completare i documenti."_s,
        reach == Reach::Form ? u"aprire il pagamento e confermarlo: i campi vuoti diventano zero."_s
                             : fromAssistance(),
        findings);
}

void checkKind(const PaymentRow &payment, Findings &findings)
{
    const QString kind = payment.kind.value.value_or(QString());
    if (kind == "A"_L1 || kind == "P"_L1)
        return;
    add(payment,
        payment.kind.missing
            ? u"manca il tipo di creditore (AziProf): «Modifica» su questo pagamento fa terminare "
              "il programma con un errore e i documenti di chiusura lo tralasciano."_s
            : u"il tipo di creditore (AziProf) è «"_s + kind +
                  u"» e non A (azienda) o P (professionista): «Modifica» non apre il pagamento e "
                  "i documenti di chiusura lo tralasciano o lo contano fra gli altri."_s,
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
    const std::map<qint32, int> counts = PaymentCounts(*data.payments);
    for (const PaymentRow &payment : *data.payments) {
        const Reach reach = reachOf(payment, counts, data.payments->size());
        checkListedFields(payment, reach, findings);
        checkStatementFields(payment, reach, findings);
        checkKind(payment, findings);
        checkGross(payment, findings);
        for (KindTotal &kind : kinds)
            kind.add(payment);
    }
    for (const KindTotal &kind : kinds)
        checkTotal(kind, findings);
}

} // namespace saldoro
