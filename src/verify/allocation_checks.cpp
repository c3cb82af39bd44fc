#include "common/amount_text.h"
#include "common/errors.h"
#include "verify/checks.h"

#include <map>
#include <utility>

namespace saldoro {

namespace {

using namespace Qt::StringLiterals;

void add(const QString &place, const QString &problem, const QString &remedy, Findings &findings)
{
    findings.append({FindingGroup::Allocations, place, problem, remedy});
}

void checkOwners(const ProjectData &data, Findings &findings)
{
    const std::map<qint32, int> counts = PaymentCounts(*data.payments);
    for (const AllocationRow &allocation : *data.allocations) {
        if (!allocation.payment.missing &&
            (!allocation.payment.value || counts.contains(*allocation.payment.value)))
            continue;
        add(AllocationName(allocation),
            u"non è di nessun pagamento: l'importo riduce la disponibilità della voce e il primo "
            "pagamento con quel numero se lo trova dentro."_s,
            u"eliminare la riga dall'archivio o darle il numero giusto, con l'aiuto "
            "dell'assistenza."_s,
            findings);
    }
}

/** The budget's codes by their compared form. */
std::map<QString, QString> budgetCodes(const QList<BudgetRow> &budget)
{
    std::map<QString, QString> codes;
    for (const BudgetRow &item : budget) {
        if (item.code.value)
            codes.emplace(ComparedCode(*item.code.value), *item.code.value);
    }
    return codes;
}

void checkCode(const AllocationRow &allocation, const std::map<QString, QString> &codes,
               Findings &findings)
{
    if (allocation.code.missing) {
        add(AllocationName(allocation),
            u"manca il codice della voce: l'importo non compare nel quadro di disponibilità."_s,
            u"aprire il pagamento, eliminare la riga e inserire la voce giusta."_s, findings);
        return;
    }
    if (!allocation.code.value)
        return;
    const auto code = codes.find(ComparedCode(*allocation.code.value));
    if (code == codes.end())
        add(AllocationName(allocation),
            u"l'appalto non ha una voce di spesa con questo codice: l'importo non compare nel "
            "quadro di disponibilità."_s,
            u"aprire il pagamento e passare l'importo a una voce dell'appalto."_s, findings);
    else if (code->second != *allocation.code.value)
        add(AllocationName(allocation),
            u"la voce dell'appalto si scrive «"_s + code->second +
                u"», con altre maiuscole: il pagamento può ricevere due volte la stessa voce e il "
                "salvataggio ne scrive una sola."_s,
            u"aprire il pagamento, eliminare la riga e inserire di nuovo la voce."_s, findings);
}

/** The overview adds up only what has the code of a cost item. */
void checkAmount(const AllocationRow &allocation, const std::map<QString, QString> &codes,
                 Findings &findings)
{
    if (!allocation.amount.missing)
        return;
    if (allocation.code.value && codes.contains(ComparedCode(*allocation.code.value)))
        add(AllocationName(allocation),
            u"manca l'importo: il quadro di disponibilità si ferma a questa voce e la schermata "
            "principale non si apre."_s,
            u"scrivere l'importo nell'archivio, con l'aiuto dell'assistenza."_s, findings);
    else
        add(AllocationName(allocation),
            u"manca l'importo: nella fattura resta vuoto e «Conferma» lo scrive come zero."_s,
            u"aprire il pagamento e scrivere l'importo."_s, findings);
}

void checkRepeated(const ProjectData &data, Findings &findings)
{
    std::map<std::pair<qint32, QString>, int> rows;
    for (const AllocationRow &allocation : *data.allocations) {
        if (!allocation.payment.value || !allocation.code.value)
            continue;
        const auto [first, isNew] = rows.try_emplace(
            {*allocation.payment.value, ComparedCode(*allocation.code.value)}, allocation.row);
        if (!isNew)
            add(AllocationName(allocation),
                u"il pagamento ha già questa voce alla riga %1: «Conferma» scrive gli importi di "
                "tutte e due nella prima."_s.arg(first->second),
                u"aprire il pagamento, eliminare una delle due righe e dare all'altra l'importo "
                "giusto."_s,
                findings);
    }
}

/** What the invoice form shows as total of the allocations and of the invoice. */
struct Totals
{
    Currency allocated;
    bool readable = true;

    void add(const AllocationRow &allocation)
    {
        if (!allocation.amount.value) {
            readable = false;
            return;
        }
        try {
            allocated += ImportoDaTesto(FormatImporto(*allocation.amount.value));
        } catch (const OverflowError &) {
            readable = false;
        }
    }
};

/** The invoice's total in display form; empty when it can't be formed. */
QString invoiceTotal(const PaymentRow &payment)
{
    if (!payment.amount.value || !payment.vat.value)
        return {};
    try {
        Currency total = *payment.amount.value + *payment.vat.value;
        if (IsProfessional(payment))
            total += payment.other.value.value_or(Currency());
        return FormatImporto(total);
    } catch (const OverflowError &) {
        return {};
    }
}

void checkTotals(const ProjectData &data, Findings &findings)
{
    std::map<qint32, Totals> totals;
    for (const AllocationRow &allocation : *data.allocations) {
        if (allocation.payment.value)
            totals[*allocation.payment.value].add(allocation);
    }
    const std::map<qint32, int> counts = PaymentCounts(*data.payments);
    for (const PaymentRow &payment : *data.payments) {
        // Payments of one number share their allocations; that is found elsewhere.
        if (!payment.number.value || counts.at(*payment.number.value) > 1)
            continue;
        const Totals &own = totals[*payment.number.value];
        const QString total = invoiceTotal(payment);
        if (total.isEmpty() || !own.readable || FormatImporto(own.allocated) == total)
            continue;
        add(PaymentName(payment),
            u"i conti di spesa sommano %1 e il totale della fattura è %2."_s.arg(
                FormatImporto(own.allocated), total),
            u"aprire il pagamento e correggere i conti di spesa o gli importi."_s, findings);
    }
}

void checkItemSums(const ProjectData &data, Findings &findings)
{
    std::map<QString, Currency> sums;
    for (const AllocationRow &allocation : *data.allocations) {
        if (!allocation.code.value || !allocation.amount.value)
            continue;
        try {
            sums[ComparedCode(*allocation.code.value)] += *allocation.amount.value;
        } catch (const OverflowError &) {
            add(AllocationName(allocation),
                u"la somma pagata su questa voce supera il massimo che il programma può tenere: "
                "il quadro di disponibilità si ferma."_s,
                u"correggere gli importi troppo grandi."_s, findings);
        }
    }
}

} // namespace

void CheckAllocations(const ProjectData &data, Findings &findings)
{
    if (!data.allocations)
        return;
    if (data.payments)
        checkOwners(data, findings);
    if (data.budget) {
        const std::map<QString, QString> codes = budgetCodes(*data.budget);
        for (const AllocationRow &allocation : *data.allocations) {
            checkCode(allocation, codes, findings);
            checkAmount(allocation, codes, findings);
        }
    }
    checkRepeated(data, findings);
    checkItemSums(data, findings);
    if (data.payments)
        checkTotals(data, findings);
}

} // namespace saldoro
