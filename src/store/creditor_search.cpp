#include "store/creditor_search.h"

#include "database/criterion.h"
#include "database/database.h"
#include "store/archive_paths.h"
#include "store/contract_sheet.h"

namespace saldoro {

using namespace Qt::StringLiterals;

QStringList ProfessionalCreditors(const ProgramValues &values)
{
    RecordSet items = Database::open(ContractPath(values))
                          .openRecordSet(u"SELECT * FROM SchedaProgetto WHERE FUNZIONE = "_s +
                                         QString::number(ItemTag::Professional));
    QStringList names;
    for (; !items.eof(); items.moveNext()) {
        const QString name = items.field(u"Stringa"_s).textOrEmpty().trimmed();
        if (!name.isEmpty())
            names.append(name);
    }
    return names;
}

QStringList ParticipatingCompanies(const ProgramValues &values, const QString &prefix)
{
    RecordSet companies =
        Database::open(CompaniesPath(values))
            .openRecordSet(u"SELECT Partecip.Nord, Anag.ID, Anag.nominativo FROM Anag INNER JOIN "
                           "Partecip ON Anag.ID = Partecip.AnagRel ORDER BY Anag.nominativo"_s);
    const QString criterion = u"nominativo Like '"_s + RaddoppiaApici(prefix) + u"*'"_s;
    QStringList names;
    companies.findFirst(criterion);
    while (!companies.noMatch()) {
        names.append(companies.field(u"nominativo"_s).text());
        companies.findNext(criterion);
    }
    return names;
}

} // namespace saldoro
