#include "store/project_copy.h"

#include "common/errors.h"
#include "database/database.h"
#include "store/archive_paths.h"

#include <QDateTime>
#include <QDir>
#include <QFileInfo>

namespace saldoro {

using namespace Qt::StringLiterals;

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
