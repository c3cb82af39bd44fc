#include "verify/allocation_checks.h"

#include "common/amount_text.h"
#include "common/errors.h"

#include <QHash>
#include <QSet>

#include <unordered_map>
#include <utility>

namespace saldoro {

using namespace Qt::StringLiterals;

namespace {

constexpr QStringView openPayment =
    u"aprire il pagamento, eliminare la riga e inserire la voce giusta.";

/** The allocations of one payment number. */
struct Allocated
{
    int payments = 0;                         ///< that have the number
    std::optional<Currency> sum = Currency(); ///< as the invoice form adds up; none when it can't
};

void add(Allocated &allocated, const CheckedRow &allocation)
{
    try {
        // The form adds what its cells show.
        if (allocated.sum)
            *allocated.sum += ShownAmount(allocation.amount.value_or(Currency()));
    } catch (const OverflowError &) {
        allocated.sum.reset();
    }
}

} // namespace

void CheckRepeated(const CheckedProject &project, Findings &findings)
{
    QSet<std::pair<qint32, QByteArray>> items;
    for (const CheckedRow &allocation : project.allocations) {
        if (!allocation.number || !allocation.code)
            continue;
        const qsizetype before = items.size();
        items.insert({*allocation.number, allocation.comparableCode});
        if (items.size() == before)
            findings.append(FindingAt(
                allocation, FindingGroup::Allocations,
                u"il pagamento ha già questa voce in un'altra riga: «Conferma» scrive gli importi "
                "di tutte e due nella prima."_s,
                u"aprire il pagamento, eliminare una delle due righe e dare all'altra l'importo "
                "giusto."_s));
    }
}

void CheckAllocatedTotals(const CheckedProject &project, Findings &findings)
{
    if (project.table(u"Fatture"_s) == nullptr)
        return;
    QHash<qint32, Allocated> byNumber;
    for (const CheckedRow &payment : project.payments) {
        if (payment.number)
            ++byNumber[*payment.number].payments;
    }
    for (const CheckedRow &allocation : project.allocations) {
        const auto its = allocation.number ? byNumber.find(*allocation.number) : byNumber.end();
        if (its != byNumber.end())
            add(*its, allocation);
        else
            findings.append(FindingAt(
                allocation, FindingGroup::Allocations,
                u"non è di nessun pagamento: l'importo riduce la disponibilità della voce e il "
                "primo pagamento con quel numero se lo trova dentro."_s,
                InTheArchive));
    }
    for (const CheckedRow &payment : project.payments) {
        // Payments of one number share their allocations. They and gross amounts beyond the range
        // are findings of payment_checks.
        const Allocated its = byNumber.value(payment.number.value_or(0));
        if (!payment.number || its.payments > 1 || !its.sum || !payment.gross ||
            ShownAmount(*payment.gross) == *its.sum)
            continue;
        findings.append(
            FindingAt(payment, FindingGroup::Allocations,
                      u"i conti di spesa sommano %1 e il totale della fattura è %2."_s.arg(
                          FormatImporto(*its.sum), FormatImporto(*payment.gross)),
                      u"aprire il pagamento e correggere i conti di spesa o gli importi."_s));
    }
}

void CheckItems(const CheckedProject &project, Findings &findings)
{
    if (project.table(u"UltimaPerVariante"_s) == nullptr)
        return;
    std::unordered_map<QByteArray, QString> codes;
    for (const CheckedRow &item : project.budget) {
        if (item.code)
            codes.try_emplace(item.comparableCode, *item.code);
    }
    for (const CheckedRow &allocation : project.allocations) {
        const auto add = [&](const QString &problem, QStringView remedy = openPayment) {
            findings.append(FindingAt(allocation, FindingGroup::Allocations, problem, remedy));
        };
        const auto code = codes.find(allocation.comparableCode);
        if (!allocation.code)
            add(u"manca il codice della voce: l'importo non compare nel quadro di "
                "disponibilità."_s);
        else if (code == codes.end())
            add(u"l'appalto non ha una voce di spesa con questo codice: l'importo non compare nel "
                "quadro di disponibilità."_s);
        else if (code->second != *allocation.code)
            add(u"la voce dell'appalto si scrive «%1», con altre maiuscole: il pagamento può "
                "ricevere due volte la stessa voce e il salvataggio ne scrive una sola."_s.arg(
                    code->second));
        if (code != codes.end() && allocation.code && !allocation.amount)
            add(u"manca l'importo, o non si legge: il quadro di disponibilità si ferma a questa "
                "voce e la schermata principale non si apre."_s,
                InTheArchive);
    }
}

} // namespace saldoro
