#include "common/archive_folders.h"

#include <QStringBuilder>

namespace saldoro {

QString ProjectFolder(const ProgramValues &values)
{
    return values.ArchiveRoot % ArchiveFolders::Appalti % u'\\' % values.ProjectCode;
}

QString LedgerPath(const ProgramValues &values)
{
    return ProjectFolder(values) % u'\\' % ArchiveFiles::Ledger;
}

QString ContractPath(const ProgramValues &values)
{
    return ProjectFolder(values) % u'\\' % ArchiveFiles::Contract;
}

QString CompaniesPath(const ProgramValues &values)
{
    return ProjectFolder(values) % u'\\' % ArchiveFiles::Companies;
}

QString CodesPath(const ProgramValues &values)
{
    return values.ArchiveRoot % ArchiveFolders::Tabelle % u'\\' % ArchiveFiles::Codes;
}

QString UpdateFolder(const ProgramValues &values)
{
    return values.ArchiveRoot % ArchiveFolders::Update % u'\\';
}

} // namespace saldoro
