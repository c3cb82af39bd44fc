#include "store/internal_codes.h"
#include "verify/checks.h"

#include <map>

namespace saldoro {

namespace {

using namespace Qt::StringLiterals;

void add(const QString &code, const QString &problem, Findings &findings)
{
    findings.append({FindingGroup::Codes, u"Codice "_s + code, problem,
                     u"correggere la tabella Funzioni di chiavi.mdb nel programma che tiene le "
                     "tabelle comuni, o con l'aiuto dell'assistenza."_s});
}

/** How an external code can be lacking. */
enum class Lack
{
    Row,   ///< the map has no row for the code
    Value, ///< the row has none
    Text   ///< the row has an empty one
};

QString stopsClosing()
{
    return u"la chiusura della schermata principale si ferma senza completare i documenti."_s;
}

/** A lookup gives an empty code for a row that is not there, and stops at one without a value; what
 *  registers a document or a total needs the row. */
QString consequence(CodeUse use, Lack lack)
{
    switch (use) {
    case CodeUse::Search:
        return lack == Lack::Value ? u"le fatture delle aziende non si aprono e il programma "
                                     "termina con un errore."_s
                                   : u"le fatture delle aziende non trovano l'appaltatore."_s;
    case CodeUse::Note:
        return lack == Lack::Value ? u"aprire, confermare o eliminare un pagamento fa terminare il "
                                     "programma con un errore."_s
                                   : u"i mandati vengono scritti, e cercati, sotto un codice senza "
                                     "nome."_s;
    case CodeUse::File:
        return lack == Lack::Text ? u"il documento si scrive con il nome «.rtf», e un altro "
                                    "documento senza codice lo sovrascrive."_s
                                  : stopsClosing();
    case CodeUse::Total:
        return lack == Lack::Text
                   ? u"il totale si scrive nella scheda dell'appalto sotto un codice "
                     "vuoto, dove non lo si trova."_s
                   : stopsClosing();
    }
    return {};
}

bool containsAny(const QString &text, QStringView characters)
{
    for (const QChar character : characters) {
        if (text.contains(character))
            return true;
    }
    return false;
}

void checkSpelling(const UsedCode &needed, const QString &external, Findings &findings)
{
    const QString code = needed.code.toString();
    if (external.contains(u'\''))
        add(code,
            u"il codice esterno «"_s + external +
                u"» contiene un apostrofo: le ricerche nella scheda dell'appalto non riescono."_s,
            findings);
    if (needed.use == CodeUse::Note && containsAny(external, u"*?#["))
        add(code,
            u"il codice esterno «"_s + external +
                u"» contiene caratteri jolly (* ? # [): un pagamento può leggere o eliminare i "
                "mandati di altri."_s,
            findings);
    if (needed.use == CodeUse::File && containsAny(external, QStringView(u"\\/:*?\"<>|\0", 10)))
        add(code,
            u"il codice esterno «"_s + external +
                u"» non può essere il nome di un file: il documento non viene scritto."_s,
            findings);
}

/** The rows of the map for a code that is needed. */
void checkRows(const UsedCode &needed, const QList<CodeRow> &rows, Findings &findings)
{
    const QString code = needed.code.toString();
    if (rows.isEmpty()) {
        add(code, u"manca nella tabella: "_s + consequence(needed.use, Lack::Row), findings);
        return;
    }
    if (rows.size() > 1)
        add(code, u"compare %1 volte nella tabella: vale solo la prima."_s.arg(rows.size()),
            findings);
    const CodeRow &row = rows.first();
    if (!row.externalCode.value)
        add(code, u"non ha un codice esterno (CodExt): "_s + consequence(needed.use, Lack::Value),
            findings);
    else if (row.externalCode.value->isEmpty())
        add(code, u"ha un codice esterno vuoto: "_s + consequence(needed.use, Lack::Text),
            findings);
    else
        checkSpelling(needed, *row.externalCode.value, findings);
    if (needed.use == CodeUse::File && row.description.missing)
        add(code, u"non ha una descrizione: "_s + stopsClosing(), findings);
}

void checkShared(const ProjectData &data, Findings &findings)
{
    std::map<QString, QString> users;
    for (const UsedCode &needed : UsedCodes) {
        const QString code = needed.code.toString();
        const QString external = ExternalCode(data, code).value_or(QString());
        if (external.isEmpty())
            continue;
        const auto [first, isNew] = users.try_emplace(ComparedCode(external), code);
        if (!isNew)
            add(code,
                u"ha lo stesso codice esterno «"_s + external + u"» di "_s + first->second +
                    u": l'uno sovrascrive i dati dell'altro."_s,
                findings);
    }
}

} // namespace

void CheckCodes(const ProjectData &data, Findings &findings)
{
    if (!data.codes)
        return;
    std::map<QString, QList<CodeRow>> rows;
    for (const CodeRow &row : *data.codes)
        rows[ComparedCode(row.internalCode)].append(row);
    for (const UsedCode &needed : UsedCodes)
        checkRows(needed, rows[ComparedCode(needed.code.toString())], findings);
    checkShared(data, findings);
}

} // namespace saldoro
