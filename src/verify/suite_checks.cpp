#include "store/internal_codes.h"
#include "verify/checks.h"

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
    const QString stopsClosing =
        u"la chiusura della schermata principale si ferma senza completare i documenti."_s;
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

/** What is wrong with the row of a code that the map stands on, if it does on any. */
QStringList faultsOf(const RecordSet &codes, CodeUse use)
{
    const auto &[ofStop, ofNone] = consequencesOf(use);
    const bool isWritten = use == CodeUse::File || use == CodeUse::Total;
    if (codes.noMatch())
        return {u"manca nella tabella: "_s + (isWritten ? ofStop : ofNone)};
    QStringList faults;
    const FieldValue external = codes.field(u"CodExt"_s);
    if (external.isNull())
        faults.append(u"non ha un codice esterno (CodExt): "_s + ofStop);
    else if (external.text().isEmpty())
        faults.append(u"ha un codice esterno vuoto: "_s + ofNone);
    else if (external.text().contains(u'\''))
        faults.append(
            u"il codice esterno «"_s + external.text() +
            u"» contiene un apostrofo: le ricerche nella scheda dell'appalto non riescono."_s);
    if (use == CodeUse::File && codes.field(u"Desc"_s).isNull())
        faults.append(u"non ha una descrizione: "_s + ofStop);
    return faults;
}

} // namespace

QString CheckCodes(RecordSet &codes, Findings &findings)
{
    QString contractor;
    for (const UsedCode &used : UsedCodes) {
        codes.findFirst(u"CodInt = '%1'"_s.arg(used.code));
        for (const QString &fault : faultsOf(codes, used.use))
            findings.append({FindingGroup::Codes, u"Codice %1"_s.arg(used.code), fault,
                             u"correggere la tabella Funzioni di chiavi.mdb nel programma che "
                             "tiene le tabelle comuni, o con l'aiuto dell'assistenza."_s});
        if (used.code == InternalCode::Contractor && !codes.noMatch())
            contractor = codes.field(u"CodExt"_s).textOrEmpty();
    }
    return contractor.contains(u'\'') ? QString() : contractor;
}

void CheckContractor(RecordSet &sheet, const QString &item, Findings &findings)
{
    if (item.isEmpty())
        return;
    sheet.findFirst(u"Voce = '"_s + item + u'\'');
    if (sheet.noMatch())
        return; // a contract that has no contractor yet
    const FieldValue link = sheet.field(u"Link"_s);
    if (!link.isNull() && link.integer() > 0)
        return;
    findings.append(
        {FindingGroup::Contract, u"Appaltatore (voce "_s + item + u')',
         link.isNull()
             ? u"manca il collegamento (Link) all'anagrafe delle imprese: le fatture delle aziende "
               "non si aprono."_s
             : u"non è collegato all'anagrafe delle imprese: «Mandanti» resta disabilitato."_s,
         u"scegliere di nuovo l'appaltatore nel programma che tiene la scheda dell'appalto."_s});
}

void CheckBudget(const QList<CostItem> &budget, Findings &findings)
{
    const auto add = [&](const QString &place, const QString &problem) {
        findings.append({FindingGroup::Budget, place, problem,
                         u"correggere le voci nel programma che le tiene."_s});
    };
    for (const CostItemFault &fault : CostItemFaults(budget))
        add(CostItemName(budget[fault.item], fault.item), fault.problem);
    if (budget.size() > PickListSize)
        add(u"Elenco delle voci"_s,
            u"le voci sono %1: «Inserisci» ne può offrire %2 e si ferma."_s.arg(budget.size())
                .arg(PickListSize));
}

} // namespace saldoro
