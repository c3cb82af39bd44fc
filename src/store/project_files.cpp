#include "store/project_files.h"

#include "common/archive_folders.h"
#include "common/errors.h"
#include "platform/machine_path.h"

#include <QDateTime>
#include <QDir>
#include <QFileInfo>
#include <QStringBuilder>

#include <map>

namespace saldoro {

using namespace Qt::StringLiterals;

QString ArchiveFilePath(ArchiveFile file, const QString &folder)
{
    static const std::map<ArchiveFile, QStringView> names{
        {ArchiveFile::Codes, ArchiveFiles::Codes},
        {ArchiveFile::Contract, ArchiveFiles::Contract},
        {ArchiveFile::Companies, ArchiveFiles::Companies},
        {ArchiveFile::Ledger, ArchiveFiles::Ledger}};
    QString place = QDir(folder).absolutePath();
    if (file == ArchiveFile::Codes)
        place += u"/../../TABELLE"_s;
    return MachinePath(QDir::cleanPath(place) % u'/' % names.at(file));
}

QString ExistingFolder(const QString &given)
{
    QString folder = QFileInfo(given).isDir() ? given : MachinePath(given);
    if (!QFileInfo(folder).isDir())
        throw FileError(folder, u"La cartella non esiste."_s,
                        u"Controllare il nome della cartella."_s);
    return folder;
}

QString CopyProject(const QString &folder, const QString &target,
                    const std::function<void(const QString &)> &step)
{
    QDir copy(
        u"%1/%2 copia %3"_s.arg(target, QFileInfo(folder).fileName(),
                                QDateTime::currentDateTime().toString(u"yyyy-MM-dd HH.mm.ss"_s)));
    if (copy.exists() || !copy.mkpath(u"."_s))
        throw FileError(copy.path(), u"La cartella non può essere creata."_s,
                        u"Controllare i permessi e lo spazio libero sul disco."_s);
    try {
        for (const ArchiveFile file : ArchiveFileList) {
            const QFileInfo original(ArchiveFilePath(file, folder));
            step(original.fileName());
            if (original.exists())
                Database::open(original.filePath()).copyTo(copy.filePath(original.fileName()));
        }
    } catch (...) {
        copy.removeRecursively(); // nothing but the copies
        throw;
    }
    return copy.path();
}

} // namespace saldoro
