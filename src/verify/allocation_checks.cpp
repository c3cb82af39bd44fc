#include "common/amount_text.h"
#include "common/errors.h"
#include "verify/checks.h"

#include <map>
#include <set>

namespace saldoro {

using namespace Qt::StringLiterals;

namespace {

void add(const QString &place, const QString &problem, const QString &remedy, Findings &findings)
{
    findings.append({FindingGroup::Allocations, place, problem, remedy});
}

/** What the invoice form shows as total of the allocations; no value when it can't be formed. */
std::optional<QString> shownTotal(const QList<AllocationRow> &allocations)
{
    Currency total;
    for (const AllocationRow &allocation : allocations) {
        if (!allocation.amount)
            return std::nullopt;
        try {
            total += ImportoDaTesto(FormatImporto(*allocation.amount));
        } catch (const OverflowError &) {
            return std::nullopt;
        }
    }
    return FormatImporto(total);
}

} // namespace

void CheckOwners(const QList<AllocationRow> &allocations, const QList<PaymentRow> &payments,
                 Findings &findings)
{
    std::set<std::optional<qint32>> numbers;
    for (const PaymentRow &payment : payments)
        numbers.insert(payment.number);
    numbers.erase(std::nullopt);
    for (const AllocationRow &allocation : allocations) {
        if (!numbers.contains(allocation.payment))
            add(allocation.name,
                u"non è di nessun pagamento: l'importo riduce la disponibilità della voce e il "
                "primo pagamento con quel numero se lo trova dentro."_s,
                u"eliminare la riga dall'archivio o darle il numero giusto, con l'aiuto "
                "dell'assistenza."_s,
                findings);
    }
}

void CheckItems(const QList<AllocationRow> &allocations, const QList<CostItem> &budget,
                Findings &findings)
{
    std::set<QString, CodeOrder> codes;
    for (const CostItem &item : budget) {
        if (item.code)
            codes.insert(*item.code);
    }
    for (const AllocationRow &allocation : allocations) {
        if (!allocation.code) {
            add(allocation.name,
                u"manca il codice della voce: l'importo non compare nel quadro di disponibilità."_s,
                u"aprire il pagamento, eliminare la riga e inserire la voce giusta."_s, findings);
            continue;
        }
        const auto code = codes.find(*allocation.code);
        if (code == codes.end())
            add(allocation.name,
                u"l'appalto non ha una voce di spesa con questo codice: l'importo non compare nel "
                "quadro di disponibilità."_s,
                u"aprire il pagamento e passare l'importo a una voce dell'appalto."_s, findings);
        else if (*code != *allocation.code)
            add(allocation.name,
                u"la voce dell'appalto si scrive «"_s + *code +
                    u"», con altre maiuscole: il pagamento può ricevere due volte la stessa voce e "
                    "il salvataggio ne scrive una sola."_s,
                u"aprire il pagamento, eliminare la riga e inserire di nuovo la voce."_s, findings);
    }
}

void CheckRepeated(const QList<AllocationRow> &allocations, Findings &findings)
{
    std::map<qint32, std::set<QString, CodeOrder>> items;
    for (const AllocationRow &allocation : allocations) {
        if (allocation.payment && allocation.code &&
            !items[*allocation.payment].insert(*allocation.code).second)
            add(allocation.name,
                u"il pagamento ha già questa voce in un'altra riga: «Conferma» scrive gli importi "
                "di tutte e due nella prima."_s,
                u"aprire il pagamento, eliminare una delle due righe e dare all'altra l'importo "
                "giusto."_s,
                findings);
    }
}

void CheckInvoices(const QList<AllocationRow> &allocations, const QList<PaymentRow> &payments,
                   Findings &findings)
{
    std::map<qint32, QList<AllocationRow>> ofPayment;
    for (const AllocationRow &allocation : allocations) {
        if (allocation.payment)
            ofPayment[*allocation.payment].append(allocation);
    }
    std::map<qint32, int> payers;
    for (const PaymentRow &payment : payments)
        ++payers[payment.number.value_or(0)];
    for (const PaymentRow &payment : payments) {
        // Payments of one number share their allocations; that is found elsewhere.
        if (!payment.number || !payment.gross || payers[*payment.number] > 1)
            continue;
        const QString total = FormatImporto(*payment.gross);
        const QString allocated = shownTotal(ofPayment[*payment.number]).value_or(total);
        if (allocated != total)
            add(payment.name,
                u"i conti di spesa sommano %1 e il totale della fattura è %2."_s.arg(allocated,
                                                                                     total),
                u"aprire il pagamento e correggere i conti di spesa o gli importi."_s, findings);
    }
}

} // namespace saldoro
