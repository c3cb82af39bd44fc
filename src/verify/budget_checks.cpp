#include "common/text_cut.h"
#include "verify/checks.h"

#include <map>

namespace saldoro {

namespace {

using namespace Qt::StringLiterals;

/** Characters of a code that the invoice forms keep. */
constexpr qsizetype CodeWidth = 5;
/** Cost items that the invoice forms can offer. */
constexpr qsizetype PickListSize = 201;

void add(const BudgetRow &item, const QString &problem, const QString &remedy, Findings &findings)
{
    findings.append({FindingGroup::Budget, BudgetName(item), problem, remedy});
}

QString inTheContract()
{
    return u"correggere il codice nel programma che tiene le voci dell'appalto."_s;
}

void checkNulls(const BudgetRow &item, Findings &findings)
{
    const QString stops = u": il quadro di disponibilità si ferma a questa riga e la schermata "
                          "principale non si apre."_s;
    const QString remedy = u"completare la voce nel programma che tiene le voci dell'appalto."_s;
    if (item.code.missing)
        add(item, u"manca il codice (Voce)"_s + stops, remedy, findings);
    if (item.description.missing)
        add(item, u"manca la descrizione (Descri)"_s + stops, remedy, findings);
}

void checkSpelling(const BudgetRow &item, const QString &code, Findings &findings)
{
    if (code.contains(u'\''))
        add(item,
            u"il codice contiene un apostrofo: la ricerca dei pagamenti della voce non riesce e la "
            "schermata principale si ferma."_s,
            inTheContract(), findings);
    if (code != code.trimmed() || code.isEmpty())
        add(item,
            u"il codice è vuoto o ha spazi all'inizio o alla fine: la voce inserita in un "
            "pagamento riceve un codice diverso."_s,
            inTheContract(), findings);
    if (CharacterCount(code.trimmed()) > CodeWidth)
        add(item,
            u"il codice ha più di cinque caratteri: inserita in un pagamento, la voce riceve il "
            "codice «"_s +
                LeftCharacters(code.trimmed(), CodeWidth).trimmed() +
                u"» e l'importo non la raggiunge."_s,
            inTheContract(), findings);
}

void checkTwins(const QList<BudgetRow> &budget, Findings &findings)
{
    std::map<QString, const BudgetRow *> known;
    for (const BudgetRow &item : budget) {
        if (!item.code.value)
            continue;
        const auto [first, isNew] = known.try_emplace(ComparedCode(*item.code.value), &item);
        if (isNew)
            continue;
        add(item,
            u"il codice è uguale, o diverso solo per le maiuscole, a quello della riga %1 («%2»): "
            "ogni pagamento conta in tutte e due le voci."_s.arg(first->second->row)
                .arg(*first->second->code.value),
            inTheContract(), findings);
    }
}

} // namespace

void CheckBudget(const ProjectData &data, Findings &findings)
{
    if (!data.budget)
        return;
    for (const BudgetRow &item : *data.budget) {
        checkNulls(item, findings);
        if (item.code.value)
            checkSpelling(item, *item.code.value, findings);
    }
    checkTwins(*data.budget, findings);
    if (data.budget->size() > PickListSize)
        findings.append({FindingGroup::Budget, u"Elenco delle voci"_s,
                         u"le voci sono %1: «Inserisci» ne può offrire 201 e si ferma."_s.arg(
                             data.budget->size()),
                         u"ridurre le voci nel programma che tiene le voci dell'appalto."_s});
}

} // namespace saldoro
