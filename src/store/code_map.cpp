#include "store/code_map.h"

#include "common/errors.h"
#include "database/database.h"
#include "store/archive_paths.h"

namespace saldoro {

using namespace Qt::StringLiterals;

RecordSet FindCode(const ProgramValues &values, QStringView internalCode)
{
    RecordSet codes = Database::open(CodesPath(values))
                          .openRecordSet(u"SELECT * FROM Funzioni ORDER BY CodInt"_s);
    codes.findFirst(u"CodInt = '%1'"_s.arg(internalCode));
    return codes;
}

QString CodiceEsterno(const ProgramValues &values, QStringView internalCode)
{
    return WithDetail(Detail::Code, internalCode.toString(), [&] {
        const RecordSet codes = FindCode(values, internalCode);
        return codes.noMatch() ? QString() : codes.field(u"CodExt"_s).text();
    });
}

QString DescrizioneFunzione(const ProgramValues &values, QStringView internalCode)
{
    return WithDetail(Detail::Code, internalCode.toString(),
                      [&] { return FindCode(values, internalCode).field(u"Desc"_s).text(); });
}

} // namespace saldoro
