#include "invoice/contractor.h"

#include "common/archive_folders.h"
#include "common/errors.h"
#include "platform/database.h"
#include "store/code_lookups.h"

namespace saldoro {

namespace {

qint32 linkOf(const RecordSet &items, const QString &code)
{
    try {
        return items.field(QStringLiteral("Link")).integer();
    } catch (SaldoroError &error) {
        error.addDetail(QStringLiteral("Voce"), code);
        throw;
    }
}

bool isAssociation(const ProgramValues &values, qint32 companyId)
{
    const Database database = Database::open(CompaniesPath(values));
    const RecordSet company = database.openRecordSet(
        QStringLiteral("SELECT * FROM Anag WHERE ID = ") + QString::number(companyId));
    // A link to a company that the register does not hold (any more) is no association.
    return !company.eof() && company.field(QStringLiteral("TipImprese")).textOrEmpty() == u"ATI";
}

} // namespace

Contractor LoadContractor(const ProgramValues &values)
{
    Contractor contractor;
    const QString code = CodiceEsterno(values, QStringLiteral("DA1"));
    {
        const Database database = Database::open(ContractPath(values));
        RecordSet items =
            database.openRecordSet(QStringLiteral("SELECT * FROM SchedaProgetto ORDER BY VOCE"));
        items.findFirst(QStringLiteral("Voce = '") + code + QStringLiteral("'"));
        if (!items.noMatch()) {
            contractor.IdImpresa = linkOf(items, code);
            contractor.name = items.field(QStringLiteral("Stringa")).textOrEmpty();
        }
    }
    if (contractor.IdImpresa > 0)
        contractor.isAssociation = isAssociation(values, contractor.IdImpresa);
    return contractor;
}

} // namespace saldoro
