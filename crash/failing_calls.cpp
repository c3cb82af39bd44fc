#include "failing_calls.h"

#include <QFileInfo>
#include <QMap>
#include <QSet>

#include <array>
#include <cerrno>
#include <cstdarg>
#include <cstdio>
#include <dlfcn.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/statvfs.h>
#include <sys/uio.h>
#include <unistd.h>
#include <utility>

namespace saldoro {

namespace {

using namespace Qt::StringLiterals;

struct Calls
{
    CallFault fault = CallFault::Once;
    int left = 0; ///< calls until one goes wrong; 0 when none is to
    CallRecord record;
    QMap<QString, bool> written; ///< files not on the disk; true when a flush failed, for good then
    QSet<QString> folders;       ///< with entries that are not on the disk
};

Calls &calls()
{
    static Calls theCalls;
    return theCalls;
}

QString pathOf(const char *path)
{
    return QString::fromUtf8(path);
}

QString pathOf(int file)
{
    return QFileInfo(u"/proc/self/fd/%1"_s.arg(file)).symLinkTarget();
}

/** What tells a file, whatever name it has at the time. */
QString idOf(const struct stat &file)
{
    return u"%1:%2"_s.arg(file.st_dev).arg(file.st_ino);
}

QString idOf(int file)
{
    struct stat found = {};
    return ::fstat(file, &found) == 0 ? idOf(found) : QString();
}

QString idOf(const QString &path)
{
    struct stat found = {};
    return ::stat(path.toLocal8Bit().constData(), &found) == 0 ? idOf(found) : QString();
}

void noteEntry(const char *path)
{
    calls().folders.insert(idOf(QFileInfo(pathOf(path)).path()));
}

/** Notes a file that has got another name; hands on what the call gave. */
int named(int result, const char *path)
{
    if (result != 0)
        return result;
    if (calls().written.contains(idOf(pathOf(path))))
        calls().record.unflushed.append(pathOf(path));
    noteEntry(path);
    return result;
}

/** Counts a call on @p file, a descriptor or a path; true when it is to go wrong. */
template <typename File>
bool strikes(const char *call, const File &file)
{
    Calls &now = calls();
    if (now.record.struck.isEmpty()) {
        if (now.left == 0 || --now.left != 0)
            return false;
        now.record.struck = QLatin1StringView(call) + u' ' + pathOf(file).section(u'/', -1);
    } else if (now.fault == CallFault::Once) {
        return false;
    }
    errno = now.fault == CallFault::FullDisk ? ENOSPC : EIO;
    return true;
}

/** Makes the call of that name as the system itself offers it, unless it is to go wrong. @p own is
 *  the definition below that stands in front of it. */
template <typename File, typename Own, typename... Arguments>
auto callOrFail(const File &file, const char *name, Own *own, Arguments... arguments)
{
    if (calls().fault != CallFault::FullDisk && strikes(name, file))
        return decltype(own(arguments...))(-1);
    own = reinterpret_cast<Own *>(::dlsym(RTLD_NEXT, name));
    return own(arguments...);
}

template <typename Own>
int flushOrFail(const char *name, Own *own, int file)
{
    const int result = callOrFail(file, name, own, file);
    const QString id = idOf(file);
    const auto lost = calls().written.find(id);
    if (result == 0)
        calls().folders.remove(id);
    if (lost != calls().written.end() && result != 0)
        *lost = true;
    else if (lost != calls().written.end() && !*lost)
        calls().written.erase(lost);
    return result;
}

/** Whether the system needs no room for a write at that place. */
bool endsWithin(int file, size_t size, off64_t place)
{
    struct stat found = {};
    return ::fstat(file, &found) == 0 && place + static_cast<off64_t>(size) <= found.st_size;
}

/** The same for a call that writes. */
template <typename Own, typename... Place>
ssize_t writeOrFail(const char *name, Own *own, int file, const void *data, size_t size,
                    Place... place)
{
    own = reinterpret_cast<Own *>(::dlsym(RTLD_NEXT, name));
    calls().written[idOf(file)] |= false;
    if (calls().fault == CallFault::FullDisk && (... || endsWithin(file, size, place)))
        return own(file, data, size, place...);
    const bool isFirst = calls().record.struck.isEmpty();
    if (!strikes(name, file))
        return own(file, data, size, place...);
    const bool isTorn =
        isFirst && (calls().fault == CallFault::Death || calls().fault == CallFault::FullDisk);
    const ssize_t written = isTorn ? own(file, data, size / 2, place...) : 0;
    return written > 0 && calls().fault == CallFault::FullDisk ? written : -1;
}

} // namespace

bool FailingCalls::isRoomLeft()
{
    return calls().fault != CallFault::FullDisk || calls().record.struck.isEmpty();
}

void FailingCalls::arm(int call, CallFault fault)
{
    calls() = {fault, call, {}, {}, {}};
}

CallRecord FailingCalls::disarm()
{
    const Calls now = std::exchange(calls(), {});
    CallRecord record = now.record;
    if (record.struck.isEmpty() && !now.folders.isEmpty())
        record.unflushed.append(u"a folder's entries"_s);
    return record;
}

} // namespace saldoro

using saldoro::callOrFail;
using saldoro::flushOrFail;
using saldoro::named;
using saldoro::noteEntry;
using saldoro::writeOrFail;

// The program's own definitions come before those of the system's library, for the libraries too.
extern "C" {

int open64(const char *path, int flags, ...)
{
    va_list rest;
    va_start(rest, flags);
    const mode_t mode = va_arg(rest, mode_t);
    va_end(rest);
    if ((flags & (O_WRONLY | O_RDWR)) == 0)
        return ::openat(AT_FDCWD, path, flags, mode);
    return callOrFail(path, "open64", open64, path, flags, mode);
}

ssize_t write(int file, const void *data, size_t size)
{
    return writeOrFail("write", write, file, data, size);
}

ssize_t pwrite64(int file, const void *data, size_t size, off64_t place)
{
    return writeOrFail("pwrite64", pwrite64, file, data, size, place);
}

int fdatasync(int file)
{
    return flushOrFail("fdatasync", fdatasync, file);
}

int fsync(int file)
{
    return flushOrFail("fsync", fsync, file);
}

ssize_t read(int file, void *data, size_t size)
{
    if (!saldoro::pathOf(file).endsWith(QStringLiteral(".ini")))
        return ::readv(file, std::array{iovec{data, size}}.data(), 1);
    return callOrFail(file, "read", read, file, data, size);
}

int ftruncate64(int file, off64_t size) noexcept
{
    return callOrFail(file, "ftruncate64", ftruncate64, file, size);
}

int unlink(const char *path) noexcept
{
    if (QByteArrayView(path).endsWith("-journal"))
        noteEntry(path);
    return callOrFail(path, "unlink", unlink, path);
}

int rename(const char *from, const char *to) noexcept
{
    return named(callOrFail(to, "rename", rename, from, to), to);
}

int renameat2(int fromFolder, const char *from, int toFolder, const char *to,
              unsigned flags) noexcept
{
    return named(callOrFail(to, "renameat2", renameat2, fromFolder, from, toFolder, to, flags), to);
}

int linkat(int fromFolder, const char *from, int toFolder, const char *to, int flags) noexcept
{
    return named(callOrFail(to, "linkat", linkat, fromFolder, from, toFolder, to, flags), to);
}

int statvfs64(const char *path, struct statvfs64 *found) noexcept
{
    using Own = int(const char *, struct statvfs64 *);
    const int result = reinterpret_cast<Own *>(::dlsym(RTLD_NEXT, "statvfs64"))(path, found);
    if (!saldoro::FailingCalls::isRoomLeft())
        found->f_bavail = 0;
    return result;
}

int usleep(useconds_t /*microseconds*/)
{
    return 0;
}

} // extern "C"
