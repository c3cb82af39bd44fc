#include "test_archive.h"

#include "bare_file.h"
#include "platform/machine_path.h"

#include <QFile>

#include <stdexcept>

namespace saldoro {

namespace {

void copyFiles(const QString &from, const QString &to)
{
    const QDir folder(MachinePath(to));
    bool isCopied = folder.mkpath(folder.path());
    for (const QFileInfo &file : QDir(MachinePath(from)).entryInfoList(QDir::Files))
        isCopied &= QFile::copy(file.filePath(), folder.filePath(file.fileName()));
    if (!isCopied)
        throw std::runtime_error("an archive can't be copied to " + to.toStdString());
}

} // namespace

TestArchive::TestArchive(const QString &projectCode)
{
    // Made once and then copied: making it syncs every table to the disk.
    static const QTemporaryDir templateFolder;
    static const ProgramValues empty =
        MakeEmptyArchive(templateFolder.path(), QStringLiteral("empty"));
    m_values.ProjectCode = projectCode;
    copyFrom(empty);
}

TestArchive::TestArchive(const TestArchive &other)
{
    m_values.ProjectCode = other.values().ProjectCode;
    copyFrom(other.values());
}

void TestArchive::copyFrom(const ProgramValues &original)
{
    m_values.ArchiveRoot = m_folder.path();
    copyFiles(ProjectFolder(original), ProjectFolder(m_values));
    copyFiles(UpdateFolder(original), UpdateFolder(m_values));
    const QString tables = ArchiveFolders::Tabelle.toString();
    copyFiles(original.ArchiveRoot + tables, m_values.ArchiveRoot + tables);
}

QString TestArchive::rows(const QString &archivePath, const QString &sql) const
{
    return BareFile(archivePath).rows(sql);
}

void TestArchive::execute(const QString &archivePath, const QString &sql) const
{
    BareFile(archivePath, Durability::None).rows(sql);
}

} // namespace saldoro
