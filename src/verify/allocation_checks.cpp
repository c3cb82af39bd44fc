#include "common/amount_text.h"
#include "common/errors.h"
#include "database/text_order.h"
#include "store/payment_amounts.h"
#include "verify/checks.h"

#include <map>
#include <set>

namespace saldoro {

using namespace Qt::StringLiterals;

namespace {

constexpr QStringView openPayment =
    u"aprire il pagamento, eliminare la riga e inserire la voce giusta.";

/** What the invoice form shows as total of the allocations. Throws OverflowError. */
QString shownTotal(const QList<const CheckedRow *> &allocations)
{
    Currency total;
    for (const CheckedRow *allocation : allocations)
        total += ImportoDaTesto(FormatImporto(allocation->amount.value_or(Currency())));
    return FormatImporto(total);
}

} // namespace

void CheckRepeated(const QList<CheckedRow> &allocations, Findings &findings)
{
    std::map<qint32, std::set<QString, TextOrder>> items;
    for (const CheckedRow &allocation : allocations) {
        if (allocation.number && allocation.code &&
            !items[*allocation.number].insert(*allocation.code).second)
            findings.append(FindingAt(
                allocation, FindingGroup::Allocations,
                u"il pagamento ha già questa voce in un'altra riga: «Conferma» scrive gli importi "
                "di tutte e due nella prima."_s,
                u"aprire il pagamento, eliminare una delle due righe e dare all'altra l'importo "
                "giusto."_s));
    }
}

void CheckInvoices(const ProjectTable &fatture, const QList<CheckedRow> &payments,
                   const QList<CheckedRow> &allocations, Findings &findings)
{
    std::map<qint32, int> payers;
    for (const CheckedRow &payment : payments) {
        if (payment.number)
            ++payers[*payment.number];
    }
    std::map<qint32, QList<const CheckedRow *>> ofPayment;
    for (const CheckedRow &allocation : allocations) {
        if (allocation.number && payers.contains(*allocation.number))
            ofPayment[*allocation.number].append(&allocation);
        else
            findings.append(FindingAt(
                allocation, FindingGroup::Allocations,
                u"non è di nessun pagamento: l'importo riduce la disponibilità della voce e il "
                "primo pagamento con quel numero se lo trova dentro."_s,
                InTheArchive));
    }
    for (const CheckedRow &payment : payments) {
        // Payments of one number share their allocations; that is found elsewhere, as are sums
        // that can't be formed.
        if (!payment.number || payers[*payment.number] > 1)
            continue;
        try {
            const auto gross = GrossAmount(fatture, payment);
            const QString allocated = shownTotal(ofPayment[*payment.number]);
            if (gross && allocated != FormatImporto(*gross))
                findings.append(FindingAt(
                    payment, FindingGroup::Allocations,
                    u"i conti di spesa sommano %1 e il totale della fattura è %2."_s.arg(
                        allocated, FormatImporto(*gross)),
                    u"aprire il pagamento e correggere i conti di spesa o gli importi."_s));
        } catch (const OverflowError &) {
        }
    }
}

void CheckItems(const QList<CheckedRow> &allocations, const QList<CheckedRow> &budget,
                Findings &findings)
{
    std::set<QString, TextOrder> codes;
    for (const CheckedRow &item : budget) {
        if (item.code)
            codes.insert(*item.code);
    }
    for (const CheckedRow &allocation : allocations) {
        const auto add = [&](const QString &problem, QStringView remedy = openPayment) {
            findings.append(FindingAt(allocation, FindingGroup::Allocations, problem, remedy));
        };
        const auto code = allocation.code ? codes.find(*allocation.code) : codes.end();
        if (!allocation.code)
            add(u"manca il codice della voce: l'importo non compare nel quadro di "
                "disponibilità."_s);
        else if (code == codes.end())
            add(u"l'appalto non ha una voce di spesa con questo codice: l'importo non compare nel "
                "quadro di disponibilità."_s);
        else if (*code != *allocation.code)
            add(u"la voce dell'appalto si scrive «%1», con altre maiuscole: il pagamento può "
                "ricevere due volte la stessa voce e il salvataggio ne scrive una sola."_s.arg(
                    *code));
        if (code != codes.end() && !allocation.amount)
            add(u"manca l'importo, o non si legge: il quadro di disponibilità si ferma a questa "
                u"voce e la "
                "schermata principale non si apre."_s,
                InTheArchive);
    }
}

} // namespace saldoro
