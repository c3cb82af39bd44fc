#include "exchange/made_files.h"

#include "database/database.h"
#include "platform/machine_path.h"
#include "platform/whole_file.h"
#include "store/archive_creation.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace saldoro {

using namespace Qt::StringLiterals;

MadeFiles::~MadeFiles()
{
    for (; !m_paths.isEmpty(); m_paths.removeLast()) {
        if (QFileInfo(m_paths.last()).isDir())
            QDir().rmdir(m_paths.last()); // stays when others have put something into it
        else
            QFile::remove(m_paths.last());
    }
}

void MadeFiles::makeFolder(const QString &folder)
{
    const qsizetype end = m_paths.size();
    for (QString missing = folder; !IsTaken(missing); missing = QFileInfo(missing).path())
        m_paths.insert(end, missing);
    MakeFolder(folder);
}

void MadeFiles::makeDatabase(const QString &path, ArchiveFile file)
{
    Database::requireNoJournal(path);
    const QString aside = AsideName(path);
    MadeFiles ofThisStep;
    ofThisStep.add(aside);
    CreateArchiveFile(aside, file);
    PutInPlace(aside, path);
    add(Database::journalPath(path));
    add(path);
}

} // namespace saldoro
