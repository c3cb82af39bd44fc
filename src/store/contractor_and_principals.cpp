#include "store/contractor_and_principals.h"

#include "common/errors.h"
#include "database/database.h"
#include "store/archive_paths.h"
#include "store/code_map.h"
#include "store/contract_sheet.h"
#include "store/internal_codes.h"

namespace saldoro {

using namespace Qt::StringLiterals;

namespace {

bool isAssociation(const ProgramValues &values, qint32 companyId)
{
    const RecordSet company =
        Database::open(CompaniesPath(values))
            .openRecordSet(u"SELECT * FROM Anag WHERE ID = "_s + QString::number(companyId));
    // A link to a company that the register does not hold (any more) is no association.
    return !company.eof() && company.field(u"TipImprese"_s).textOrEmpty() == AssociationKind;
}

} // namespace

Contractor LoadContractor(const ProgramValues &values)
{
    Contractor contractor;
    const QString code = CodiceEsterno(values, InternalCode::Contractor);
    {
        RecordSet items = OpenContractSheet(values);
        if (FindItem(items, code)) {
            contractor.IdImpresa =
                WithDetail(Detail::Item, code, [&] { return items.field(u"Link"_s).integer(); });
            contractor.name = items.field(u"Stringa"_s).textOrEmpty();
        }
    }
    if (contractor.IdImpresa > 0)
        contractor.isAssociation = isAssociation(values, contractor.IdImpresa);
    return contractor;
}

QStringList Principals(const ProgramValues &values, qint32 IdImpresa)
{
    RecordSet principals =
        Database::open(CompaniesPath(values))
            .openRecordSet(
                u"SELECT Anag.ID, Anag.nominativo, Manda.AnagRel , Manda.AnagPar  FROM Anag "
                "INNER JOIN Manda ON Anag.ID = Manda.AnagRel WHERE AnagPar = "_s +
                QString::number(IdImpresa) + u" ORDER BY Anag.nominativo"_s);
    QStringList names;
    for (; !principals.eof(); principals.moveNext())
        names.append(principals.field(u"nominativo"_s).textOrEmpty());
    return names;
}

} // namespace saldoro
