#include "verify/contract_checks.h"

#include "common/characters.h"
#include "database/text_order.h"
#include "store/internal_codes.h"
#include "store/pick_limits.h"

#include <algorithm>
#include <set>

namespace saldoro {

using namespace Qt::StringLiterals;

namespace {

/** What comes of an internal code that a look-up stops at, or finds nothing for and goes on. */
struct Consequences
{
    QString ofStop;
    QString ofNone;
};

Consequences consequencesOf(CodeUse use)
{
    const QString stopsClosing = StopsClosing.toString();
    switch (use) {
    case CodeUse::Search:
        return {u"le fatture delle aziende non si aprono e il programma termina con un errore."_s,
                u"le fatture delle aziende non trovano l'appaltatore."_s};
    case CodeUse::Note:
        return {u"aprire, confermare o eliminare un pagamento fa terminare il programma con un "
                "errore."_s,
                u"i mandati vengono scritti, e cercati, sotto un codice senza nome."_s};
    case CodeUse::File:
        return {stopsClosing, u"il documento si scrive con il nome «.rtf», e un altro documento "
                              "senza codice lo sovrascrive."_s};
    case CodeUse::Total:
        return {stopsClosing, u"il totale si scrive nella scheda dell'appalto sotto un codice "
                              "vuoto, dove non lo si trova."_s};
    }
    return {};
}

/** What is wrong with the row of a code, if there is one. */
QStringList faultsOf(const ProjectTable &codes, qsizetype row, CodeUse use)
{
    const auto &[ofStop, ofNone] = consequencesOf(use);
    const bool isWritten = use == CodeUse::File || use == CodeUse::Total;
    if (row < 0)
        return {u"manca nella tabella: "_s + (isWritten ? ofStop : ofNone)};
    QStringList faults;
    const auto external = codes.value<QString>(row, u"CodExt"_s);
    if (!external)
        faults.append(u"non ha un codice esterno (CodExt): "_s + ofStop);
    else if (external->isEmpty())
        faults.append(u"ha un codice esterno vuoto: "_s + ofNone);
    else if (external->contains(u'\''))
        faults.append(
            u"il codice esterno «"_s + *external +
            u"» contiene un apostrofo: le ricerche nella scheda dell'appalto non riescono."_s);
    if (use == CodeUse::File && codes.isNull(row, u"Desc"_s))
        faults.append(u"non ha una descrizione: "_s + ofStop);
    return faults;
}

/** What is wrong with how a cost item's code is spelt. */
QStringList spellingFaults(const QString &code)
{
    QStringList faults;
    if (code.contains(u'\''))
        faults.append(u"il codice contiene un apostrofo: la ricerca dei pagamenti della voce non "
                      "riesce e la schermata principale si ferma."_s);
    if (code != code.trimmed() || code.isEmpty())
        faults.append(u"il codice è vuoto o ha spazi all'inizio o alla fine: la voce inserita in "
                      "un pagamento riceve un codice diverso."_s);
    if (std::ranges::any_of(code, IsUnseen))
        faults.append(u"il codice contiene caratteri che non si vedono: un altro, che si legge "
                      "uguale, è un'altra voce."_s);
    static_assert(PickedCodeWidth == 5); // "cinque"
    if (CharacterCount(code.trimmed()) > PickedCodeWidth)
        faults.append(
            u"il codice ha più di cinque caratteri: inserita in un pagamento, la voce riceve il "
            "codice «"_s +
            PickedCode(code.trimmed()) + u"» e l'importo non la raggiunge."_s);
    return faults;
}

} // namespace

void CheckCodes(const CheckedProject &project, Findings &findings)
{
    const ProjectTable *codes = project.table(u"Funzioni"_s);
    if (codes == nullptr)
        return;
    for (const UsedCode &used : UsedCodes) {
        const qsizetype row = FirstRow(codes->rows, used.code.toString());
        for (const QString &fault : faultsOf(*codes, row, used.use))
            findings.append({FindingGroup::Codes, u"Codice %1"_s.arg(used.code), fault,
                             u"correggere la tabella Funzioni di chiavi.mdb nel programma che "
                             "tiene le tabelle comuni, o con l'aiuto dell'assistenza."_s,
                             u"Funzioni"_s, row});
    }
}

void CheckBudget(const CheckedProject &project, Findings &findings)
{
    const QList<CheckedRow> &budget = project.budget;
    constexpr QStringView remedy = u"correggere le voci nel programma che le tiene.";
    const auto add = [&](const CheckedRow &row, const QString &problem) {
        findings.append(FindingAt(row, FindingGroup::Budget, problem, remedy));
    };
    std::set<QString, TextOrder> known;
    for (const CheckedRow &item : budget) {
        for (const QString &field : {u"Voce"_s, u"Descri"_s}) {
            if (item.isNull(field))
                add(item, u"manca il valore di %1: il quadro di disponibilità si ferma a questa "
                          "riga e la schermata principale non si apre."_s.arg(field));
        }
        if (!item.code)
            continue;
        for (const QString &fault : spellingFaults(*item.code))
            add(item, fault);
        if (const auto [first, isNew] = known.insert(*item.code); !isNew)
            add(item, u"il codice è uguale, o diverso solo per le maiuscole, a quello di un'altra "
                      "voce («%1»): ogni pagamento conta in tutte e due le voci."_s.arg(*first));
    }
    if (budget.size() > PickListSize)
        findings.append(
            {FindingGroup::Budget, u"Elenco delle voci"_s,
             u"le voci sono %1: «Inserisci» ne può offrire %2 e si ferma."_s.arg(budget.size())
                 .arg(PickListSize),
             remedy.toString(), budget.first().table->definition.name()});
}

} // namespace saldoro
