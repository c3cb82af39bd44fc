#include "invoice/creditor_lists.h"

#include "common/amount_text.h"
#include "common/archive_folders.h"
#include "platform/database.h"

namespace saldoro {

QStringList ProfessionalCreditors(const ProgramValues &values)
{
    const Database database = Database::open(ContractPath(values));
    RecordSet items =
        database.openRecordSet(QStringLiteral("SELECT * FROM SchedaProgetto WHERE FUNZIONE = 17"));
    QStringList names;
    for (; !items.eof(); items.moveNext()) {
        const QString name = items.field(QStringLiteral("Stringa")).textOrEmpty().trimmed();
        if (!name.isEmpty())
            names.append(name);
    }
    return names;
}

QStringList ParticipatingCompanies(const ProgramValues &values, const QString &prefix)
{
    const Database database = Database::open(CompaniesPath(values));
    RecordSet companies = database.openRecordSet(
        QStringLiteral("SELECT Partecip.Nord, Anag.ID, Anag.nominativo FROM Anag INNER JOIN "
                       "Partecip ON Anag.ID = Partecip.AnagRel ORDER BY Anag.nominativo"));
    const QString criterion =
        QStringLiteral("nominativo Like '") + RaddoppiaApici(prefix) + QStringLiteral("*'");
    QStringList names;
    companies.findFirst(criterion);
    while (!companies.noMatch()) {
        names.append(companies.field(QStringLiteral("nominativo")).text());
        companies.findNext(criterion);
    }
    return names;
}

QStringList Principals(const ProgramValues &values, qint32 IdImpresa)
{
    const Database database = Database::open(CompaniesPath(values));
    RecordSet principals = database.openRecordSet(
        QStringLiteral("SELECT Anag.ID, Anag.nominativo, Manda.AnagRel , Manda.AnagPar  FROM Anag "
                       "INNER JOIN Manda ON Anag.ID = Manda.AnagRel WHERE AnagPar = ") +
        QString::number(IdImpresa) + QStringLiteral(" ORDER BY Anag.nominativo"));
    QStringList names;
    for (; !principals.eof(); principals.moveNext())
        names.append(principals.field(QStringLiteral("nominativo")).textOrEmpty());
    return names;
}

} // namespace saldoro
