#include "store/project_open_mark.h"

#include "common/errors.h"
#include "platform/registry.h"

#include <QCoreApplication>
#include <QCryptographicHash>
#include <QDir>
#include <QFileInfo>
#include <QSysInfo>

namespace saldoro {

using namespace Qt::StringLiterals;

namespace {

QString marksFolder()
{
    return SettingsFolder() + u"/aperti"_s;
}

/** What the names of a project's marks begin with. */
QString markStart(const QString &projectFolder)
{
    const QFileInfo info(projectFolder);
    const QString path = info.exists() ? info.canonicalFilePath() : info.absoluteFilePath();
    // A project is the same in any letter case. Machines may share a settings folder, but none can
    // tell whether a program of another one still runs: the machine is part of the name.
    const QByteArray place = path.toCaseFolded().toUtf8() + '\0' + QSysInfo::machineUniqueId();
    return QString::fromLatin1(QCryptographicHash::hash(place, QCryptographicHash::Sha1).toHex()) +
           u'-';
}

std::unique_ptr<QLockFile> lockOf(const QString &path)
{
    auto lock = std::make_unique<QLockFile>(path);
    lock->setStaleLockTime(0); // only the death of its program ends a mark, however old it is
    return lock;
}

bool isMarkedBeside(const QLockFile *own, const QString &projectFolder)
{
    const QStringList marks{markStart(projectFolder) + u'*'};
    for (const QFileInfo &file : QDir(marksFolder()).entryInfoList(marks, QDir::Files)) {
        if (own != nullptr && own->fileName() == file.filePath())
            continue;
        const auto mark = lockOf(file.filePath());
        if (!mark->tryLock() && mark->error() == QLockFile::LockFailedError)
            return true;
    }
    return false;
}

} // namespace

ProjectOpenMark::ProjectOpenMark(const QString &projectFolder)
    : m_projectFolder(projectFolder)
{
    QDir().mkpath(marksFolder());
    m_mark = lockOf(marksFolder() + u'/' + markStart(projectFolder) +
                    QString::number(QCoreApplication::applicationPid()));
    if (!m_mark->tryLock())
        m_mark = nullptr;
}

bool ProjectOpenMark::isOpenElsewhere() const
{
    return isMarkedBeside(m_mark.get(), m_projectFolder);
}

bool IsProjectOpen(const QString &projectFolder)
{
    return isMarkedBeside(nullptr, projectFolder);
}

void RequireClosed(const QString &projectFolder)
{
    if (IsProjectOpen(projectFolder))
        throw SaldoroError(u"L'appalto è aperto in Saldoro."_s,
                           u"Chiudere la sua finestra e riprovare."_s);
}

} // namespace saldoro
