#include "platform/whole_file.h"

#include "common/errors.h"
#include "platform/machine_path.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStorageInfo>

#include <filesystem>
#include <system_error>

#ifdef Q_OS_WIN
#include <windows.h>
#else
#include <cerrno>
#include <fcntl.h>
#include <unistd.h>
#endif

namespace saldoro {

using namespace Qt::StringLiterals;

namespace {

/** The most likely cause of a failed write, told from what is on the disk. */
FileError failureOf(const QString &name, QFileDevice::FileError fault, const QString &particulars)
{
    const QString path = QFileInfo(name).absoluteFilePath();
    const QFileInfo target(path);
    const QFileInfo folder(target.path());
    if (!folder.isDir())
        return {path, u"La cartella del file non esiste."_s,
                u"Controllare la cartella degli archivi e il codice del progetto."_s};
    if (target.isDir())
        return {path, u"Al posto del file c'è una cartella."_s,
                u"Spostare altrove la cartella con il nome del file."_s};
    if (fault == QFileDevice::ResourceError)
        return {path, u"Il disco è pieno: il file non è stato scritto."_s,
                u"Liberare spazio sul disco e riprovare."_s};
    if (!folder.isWritable() || (target.exists() && !target.isWritable()))
        return {path, u"Il file o la sua cartella non accetta modifiche."_s,
                u"Controllare i permessi del file e della sua cartella."_s};
    if (fault == QFileDevice::RenameError)
        return {path, u"Il file non può essere sostituito."_s,
                u"Chiudere il file negli altri programmi e riprovare."_s};
    FileError error(path, u"La scrittura del file non è riuscita."_s,
                    u"Controllare che il disco funzioni e riprovare."_s);
    error.addDetail(Detail::Particulars, particulars);
    return error;
}

FileError failureOf(const QSaveFile &file)
{
    // The toolkit does not ask why the disk took a part only, which may be no error to it.
    constexpr qint64 leastRoom = 4096;
    const bool isCut =
        file.error() == QFileDevice::WriteError || file.error() == QFileDevice::NoError;
    const bool isFull =
        isCut && QStorageInfo(QFileInfo(file.fileName()).path()).bytesAvailable() < leastRoom;
    return failureOf(file.fileName(), isFull ? QFileDevice::ResourceError : file.error(),
                     file.errorString());
}

FileError failureOf(const QString &path, const std::error_code &fault)
{
    return failureOf(path,
                     fault == std::errc::no_space_on_device ? QFileDevice::ResourceError
                                                            : QFileDevice::WriteError,
                     QString::fromStdString(fault.message()));
}

#ifdef Q_OS_WIN

/** The toolkit flushes when it commits, and gives no handle before. */
void flushToDisk(QSaveFile & /*file*/) {}

/** Renaming over a file takes the right to delete it, which a program that has it open may deny. */
bool isKeptByOthers(const QString &path)
{
    const HANDLE file = CreateFileW(QDir::toNativeSeparators(path).toStdWString().c_str(), DELETE,
                                    FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                    OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file == INVALID_HANDLE_VALUE)
        return GetLastError() == ERROR_SHARING_VIOLATION;
    CloseHandle(file);
    return false;
}

/** The system has no flush for folders. */
void flushFolderOf(const QString & /*path*/) {}

#else

/** The toolkit flushes when it commits, but overlooks that the disk refused. */
void flushToDisk(QSaveFile &file)
{
    if (::fdatasync(file.handle()) != 0)
        throw failureOf(file.fileName(), std::error_code(errno, std::generic_category()));
}

bool isKeptByOthers(const QString & /*path*/)
{
    return false; // renaming over an open file is always possible
}

/** Passes over a folder that may not be read and a file system that has no flush for folders. */
void flushFolderOf(const QString &path)
{
    const QByteArray name = QFile::encodeName(QFileInfo(path).path());
    const int folder = ::open(name.constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (folder < 0)
        return;
    const int fault = ::fsync(folder) == 0 || errno == EINVAL ? 0 : errno;
    ::close(folder);
    if (fault != 0)
        throw failureOf(path, std::error_code(fault, std::generic_category()));
}

#endif

} // namespace

WholeFile::WholeFile(const QString &path, const std::function<bool(QIODevice &)> &write)
    : m_file(std::make_unique<QSaveFile>(path))
{
    // Flushed here, since the toolkit's commit would overlook that there was no room, and put a cut
    // file in the place of the old one.
    if (!m_file->open(QIODevice::WriteOnly) || !write(*m_file) || !m_file->flush())
        throw failureOf(*m_file);
    flushToDisk(*m_file);
    if (isKeptByOthers(m_file->fileName()))
        throw failureOf(m_file->fileName(), QFileDevice::RenameError, {});
}

WholeFile::WholeFile(const QString &path, const QByteArray &content)
    : WholeFile(path, [&](QIODevice &file) { return file.write(content) == content.size(); })
{
}

void WholeFile::replace()
{
    if (!m_file->commit())
        throw failureOf(*m_file);
    flushFolderOf(m_file->fileName());
}

QByteArray ReadWholeFile(const QString &path)
{
    QFile file(path);
    QByteArray content;
    if (QFileInfo(path).isFile() && file.open(QIODevice::ReadOnly))
        content = file.readAll();
    if (!file.isOpen() || file.error() != QFileDevice::NoError)
        throw FileError(path, u"Il file non può essere letto."_s,
                        u"Controllare i permessi, e che nessun programma lo tenga aperto."_s);
    return content;
}

QString AsideName(const QString &path)
{
    QString aside = path + UnfinishedEnd.toString();
    for (int number = 2; IsTaken(aside); ++number)
        aside = path + u' ' + QString::number(number) + UnfinishedEnd.toString();
    return aside;
}

void PutInPlace(const QString &aside, const QString &path)
{
    if (IsTaken(path))
        throw FileError(path, u"Il file c'è già."_s,
                        u"Spostare altrove il file esistente e riprovare."_s);
    std::error_code fault;
    // The toolkit's own renaming falls back on copying, which can be cut short.
    std::filesystem::rename(aside.toStdU16String(), path.toStdU16String(), fault);
    if (fault)
        throw failureOf(path, fault);
    try {
        flushFolderOf(path);
    } catch (...) {
        std::filesystem::rename(path.toStdU16String(), aside.toStdU16String(), fault);
        throw;
    }
}

void MakeFolder(const QString &path)
{
    if (!QDir().mkpath(path))
        throw FileError(path, u"La cartella non può essere creata."_s,
                        u"Controllare i permessi e lo spazio libero sul disco."_s);
}

} // namespace saldoro
