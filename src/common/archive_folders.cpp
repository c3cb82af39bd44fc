#include "common/archive_folders.h"

namespace saldoro {

namespace {

QString joined(const QString &root, QStringView tail)
{
    return root + tail.toString();
}

} // namespace

QString ProjectFolder(const ProgramValues &values)
{
    return joined(values.ArchiveRoot, ArchiveFolders::Appalti) + u'\\' + values.ProjectCode;
}

QString LedgerPath(const ProgramValues &values)
{
    return ProjectFolder(values) + QStringLiteral("\\Saldoro.mdb");
}

QString ContractPath(const ProgramValues &values)
{
    return ProjectFolder(values) + QStringLiteral("\\Appalto.mdb");
}

QString CompaniesPath(const ProgramValues &values)
{
    return ProjectFolder(values) + QStringLiteral("\\AZIDB.mdb");
}

QString CodesPath(const ProgramValues &values)
{
    return joined(values.ArchiveRoot, ArchiveFolders::Tabelle) + QStringLiteral("\\chiavi.mdb");
}

QString UpdateFolder(const ProgramValues &values)
{
    return joined(values.ArchiveRoot, ArchiveFolders::Update) + u'\\';
}

} // namespace saldoro
