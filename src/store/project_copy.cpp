#include "store/project_copy.h"

#include "common/errors.h"
#include "database/database.h"
#include "platform/machine_path.h"
#include "platform/progress.h"
#include "platform/whole_file.h"
#include "store/archive_paths.h"

#include <QDir>
#include <QFileInfo>

#include <vector>

namespace saldoro {

using namespace Qt::StringLiterals;

QString CopyProject(const QString &folder, const QString &target)
{
    QDir copy(target + u'/' + Database::copyName(QFileInfo(folder).fileName()));
    std::vector<Database> databases;
    databases.push_back(Database::open(ArchiveFilePath(ArchiveFile::Contract, folder)));
    for (const ArchiveFile file : ArchiveFileList) {
        const QString path = ArchiveFilePath(file, folder);
        if (file != ArchiveFile::Contract && IsTaken(path))
            databases.push_back(databases.front().attach(path));
    }
    for (const Database &database : databases)
        Database::requirePlainJournal(database.path()); // others could write meanwhile
    const Transaction transaction(databases.front(), TransactionKind::Reading);
    for (const Database &database : databases)
        database.tableDef(u"Fatture"_s); // reading anything keeps a file from changing
    if (copy.exists())
        throw FileError(copy.path(), u"La cartella c'è già."_s, u"Riprovare fra un secondo."_s);
    MakeFolder(copy.path());
    try {
        for (const Database &database : databases) {
            const QString name = QFileInfo(database.path()).fileName();
            const Progress progress(u"Copia di "_s + name);
            database.copyTo(copy.filePath(name));
        }
    } catch (...) {
        copy.removeRecursively(); // nothing but the copies
        throw;
    }
    return copy.path();
}

} // namespace saldoro
