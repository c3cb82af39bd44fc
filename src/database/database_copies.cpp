#include "database/connection.h"
#include "database/database.h"
#include "platform/whole_file.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace saldoro {

using namespace Qt::StringLiterals;

QString Database::copyName(const QString &original)
{
    return original + u" copia "_s +
           QDateTime::currentDateTime().toString(u"yyyy-MM-dd HH.mm.ss"_s);
}

QString Database::backUpBeside() const
{
    const QFileInfo original(path());
    const QString name = original.dir().filePath(copyName(original.completeBaseName()));
    QString copy = name + u".mdb"_s;
    for (int number = 2; QFile::exists(copy); ++number)
        copy = name + u" (%1).mdb"_s.arg(number);
    copyTo(copy);
    return copy;
}

void Database::copyTo(const QString &copyPath) const
{
    const QString aside = AsideName(copyPath);
    CreateEmptyFile(aside);
    try {
        {
            Connection copy(aside, FileAccess::Create);
            // On a connection of its own, which also reads while this one has the write lock.
            Connection(path(), FileAccess::ReadWrite).copyTo(copy);
        }
        QFile::setPermissions(aside, QFile::permissions(path()));
        PutInPlace(aside, copyPath);
    } catch (...) {
        QFile::remove(aside);
        throw;
    }
}

Database Database::copyInMemory() const
{
    const auto copy = std::make_shared<Connection>(path(), FileAccess::InMemory);
    m_file->copyTo(*copy);
    return Database(copy);
}

} // namespace saldoro
