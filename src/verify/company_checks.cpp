#include "verify/company_checks.h"

#include "database/text_order.h"
#include "store/contractor_and_principals.h"
#include "store/internal_codes.h"

#include <QSet>

#include <algorithm>
#include <tuple>

namespace saldoro {

using namespace Qt::StringLiterals;

namespace {

/** What is wrong with the contractor's link; empty for nothing. @p companies is null when the
 *  register can't be read. A link that the office can mend: ReadCreditors(). */
QString linkFault(const ProjectTable &sheet, qsizetype row, const ProjectTable *companies)
{
    const auto link = sheet.value<qint32>(row, u"Link"_s);
    if (sheet.isNull(row, u"Link"_s))
        return u"manca il collegamento (Link) all'anagrafe delle imprese: le fatture delle "
               "aziende non si aprono."_s;
    if (link && *link <= 0)
        return u"non è collegato (Link) all'anagrafe delle imprese: «Mandanti» resta "
               "disabilitato."_s;
    if (!link || companies == nullptr)
        return {};
    const auto number = companies->definition.indexOf(u"ID"_s);
    const auto company = std::ranges::find_if(companies->rows, [&](const TableRow &each) {
        return ValueAs<qint32>(each[number]) == link;
    });
    if (company == companies->rows.end())
        return u"il collegamento (Link) %1 non porta a nessuna impresa dell'anagrafe: «Mandanti» "
               "resta disabilitato."_s.arg(*link);
    const auto nameOf = [at = companies->definition.indexOf(u"nominativo"_s)](
                            const TableRow &each) { return TextOf(each[at]); };
    const QString contractor = sheet.value<QString>(row, u"Stringa"_s).value_or(QString());
    const bool isNamed = std::ranges::any_of(companies->rows, [&](const TableRow &each) {
        return AreEqualTexts(nameOf(each), contractor);
    });
    // Another spelling of the same company changes nothing.
    const bool isHarmless =
        !isNamed &&
        TextOf((*company)[companies->definition.indexOf(u"TipImprese"_s)]) != AssociationKind;
    return isHarmless || AreEqualTexts(nameOf(*company), contractor)
               ? QString()
               : u"si chiama «%1», ma il suo collegamento (Link) porta all'impresa «%2»: "
                 "«Mandanti» segue questa."_s.arg(contractor, nameOf(*company));
}

} // namespace

void CheckContractor(const CheckedProject &project, Findings &findings)
{
    const ProjectTable *codes = project.table(u"Funzioni"_s);
    const ProjectTable *sheet = project.table(u"SchedaProgetto"_s);
    if (codes == nullptr || sheet == nullptr)
        return;
    const qsizetype code = FirstRow(codes->rows, InternalCode::Contractor.toString());
    const QString item =
        code < 0 ? QString() : codes->value<QString>(code, u"CodExt"_s).value_or(QString());
    const bool isSearchable = !item.isEmpty() && !item.contains(u'\'');
    const qsizetype row = isSearchable ? FirstRow(sheet->rows, item) : -1;
    if (row < 0)
        return; // a contract that has no contractor yet
    if (const QString fault = linkFault(*sheet, row, project.table(u"Anag"_s)); !fault.isEmpty())
        findings.append(
            {FindingGroup::Companies, u"Appaltatore (voce "_s + item + u')', fault,
             u"scegliere di nuovo l'appaltatore nel programma che tiene la scheda dell'appalto, o "
             "salvarlo in «Imprese e professionisti» di Saldoro - Appalti."_s,
             sheet->definition.name(), row});
}

void CheckCompanies(const CheckedProject &project, Findings &findings)
{
    const ProjectTable *companies = project.table(u"Anag"_s);
    if (companies == nullptr)
        return;
    QSet<qint32> known;
    const auto add = [&](const ProjectTable &table, qsizetype row, const QString &problem) {
        findings.append({FindingGroup::Companies,
                         u"%1, riga %2"_s.arg(table.definition.name()).arg(row + 1), problem,
                         InTheArchive.toString(), table.definition.name(), row});
    };
    for (qsizetype row = 0; row < companies->rows.size(); ++row) {
        const auto number = companies->value<qint32>(row, u"ID"_s);
        if (number && known.contains(*number))
            add(*companies, row,
                u"il numero (ID) %1 è già di un'altra impresa: chi partecipa e le mandanti si "
                "scambiano fra le due."_s.arg(*number));
        if (number)
            known.insert(*number);
    }
    for (const auto &[name, field, consequence] :
         {std::tuple{u"Partecip"_s, u"AnagRel"_s, u"l'impresa non si trova fra i creditori."_s},
          {u"Manda"_s, u"AnagRel"_s, u"la mandante non si trova fra i creditori."_s},
          {u"Manda"_s, u"AnagPar"_s, u"nessuno propone la mandante."_s}}) {
        const ProjectTable *table = project.table(name);
        for (qsizetype row = 0; table != nullptr && row < table->rows.size(); ++row) {
            const auto number = table->value<qint32>(row, field);
            if (number && !known.contains(*number))
                add(*table, row,
                    u"nessuna impresa ha il numero (%1) %2: "_s.arg(field).arg(*number) +
                        consequence);
        }
    }
}

} // namespace saldoro
