#include "empty_archive.h"

#include "bare_file.h"
#include "platform/machine_path.h"
#include "store/archive_creation.h"
#include "store/archive_paths.h"
#include "store/internal_codes.h"

#include <QDir>

namespace saldoro {

ProgramValues MakeEmptyArchive(const QString &root, const QString &projectCode)
{
    ProgramValues values;
    values.ArchiveRoot = root;
    values.ProjectCode = projectCode;
    for (const QString &folder :
         {ProjectFolder(values), root + ArchiveFolders::Tabelle.toString(), UpdateFolder(values)})
        QDir().mkpath(MachinePath(folder));
    CreateArchiveFile(ContractPath(values), ArchiveFile::Contract);
    CreateArchiveFile(CompaniesPath(values), ArchiveFile::Companies);
    CreateLedgerDatabase(ProjectFolder(values));
    if (!QFile::exists(MachinePath(CodesPath(values))))
        CreateArchiveFile(CodesPath(values), ArchiveFile::Codes);
    return values;
}

void AddStandardCodes(const ProgramValues &values)
{
    BareFile codes(CodesPath(values), Durability::None);
    BareStatement insert = codes.prepare("INSERT INTO Funzioni VALUES (?, ?, ?)");
    for (const UsedCode &used : UsedCodes)
        insert.run(used.code.toString(), used.standardItem.toString(),
                   used.standardDescription.toString());
}

} // namespace saldoro
