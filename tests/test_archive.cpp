#include "test_archive.h"

#include "bare_file.h"
#include "platform/machine_path.h"

#include <QDir>
#include <QFile>
#include <QStringList>

#include <stdexcept>

namespace saldoro {

namespace {

void copyFiles(const QString &from, const QString &to)
{
    if (!QDir().mkpath(to))
        throw std::runtime_error("no folder for the archive: " + to.toStdString());
    for (const QString &file : QDir(from).entryList(QDir::Files)) {
        QFile::copy(from + u'/' + file, to + u'/' + file);
    }
}

/** The archive of @p original once more, below @p root. */
ArchiveBuilder copyOf(const ProgramValues &original, const QString &root,
                      const QString &projectCode)
{
    ArchiveBuilder archive = ArchiveBuilder::ofExisting(root, projectCode);
    copyFiles(MachinePath(ProjectFolder(original)), MachinePath(ProjectFolder(archive.values())));
    for (const QStringView folder : {ArchiveFolders::Tabelle, ArchiveFolders::Update}) {
        copyFiles(MachinePath(original.ArchiveRoot + folder.toString()),
                  MachinePath(root + folder.toString()));
    }
    return archive;
}

/** A new archive, copied from one that is made once: making it syncs every table to the disk. */
ArchiveBuilder emptyArchive(const QString &root, const QString &projectCode)
{
    static const QTemporaryDir templateFolder;
    static const ProgramValues empty =
        ArchiveBuilder(templateFolder.path(), QStringLiteral("empty")).values();
    return copyOf(empty, root, projectCode);
}

} // namespace

TestArchive::TestArchive(const QString &projectCode)
    : m_builder(emptyArchive(m_folder.path(), projectCode))
{
}

TestArchive::TestArchive(const TestArchive &other)
    : m_builder(copyOf(other.values(), m_folder.path(), other.values().ProjectCode))
{
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
