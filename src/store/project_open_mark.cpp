#include "store/project_open_mark.h"

#include "common/errors.h"
#include "platform/registry.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFileInfo>

namespace saldoro {

using namespace Qt::StringLiterals;

namespace {

/** More windows of one project than anyone opens; further ones go unmarked. */
constexpr int mostMarks = 16;

std::unique_ptr<QLockFile> markNumber(int number, const QString &projectFolder)
{
    const QString folder = SettingsFolder() + u"/aperti"_s;
    QDir().mkpath(folder);
    const QFileInfo info(projectFolder);
    const QString path = info.exists() ? info.canonicalFilePath() : info.absoluteFilePath();
    // A project is the same in any letter case.
    const QByteArray name =
        QCryptographicHash::hash(path.toCaseFolded().toUtf8(), QCryptographicHash::Sha1).toHex();
    auto mark = std::make_unique<QLockFile>(folder + u'/' + QString::fromLatin1(name) + u'-' +
                                            QString::number(number));
    mark->setStaleLockTime(0); // only the death of its program ends a mark, however old it is
    return mark;
}

bool isMarkedBeside(const QLockFile *own, const QString &projectFolder)
{
    for (int number = 0; number < mostMarks; ++number) {
        const auto mark = markNumber(number, projectFolder);
        const bool isOwn = own != nullptr && own->fileName() == mark->fileName();
        // A lock that is tried leaves a file for a moment, which costs a write to the disk.
        if (!isOwn && QFileInfo::exists(mark->fileName()) && !mark->tryLock() &&
            mark->error() == QLockFile::LockFailedError)
            return true;
    }
    return false;
}

} // namespace

ProjectOpenMark::ProjectOpenMark(const QString &projectFolder)
    : m_projectFolder(projectFolder)
{
    for (int number = 0; number < mostMarks && !m_mark; ++number) {
        auto mark = markNumber(number, projectFolder);
        if (mark->tryLock())
            m_mark = std::move(mark);
    }
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
