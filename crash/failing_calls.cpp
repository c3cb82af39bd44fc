#include "failing_calls.h"

#include <QFileInfo>

#include <cerrno>
#include <cstdarg>
#include <cstdio>
#include <dlfcn.h>
#include <fcntl.h>
#include <unistd.h>
#include <utility>

namespace saldoro {

namespace {

using namespace Qt::StringLiterals;

struct Calls
{
    CallFault fault = CallFault::Once;
    int left = 0; ///< calls until one goes wrong; 0 when none is to
    QString struck;
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

/** Counts a call on @p file, a descriptor or a path; true when it is to go wrong. */
template <typename File>
bool strikes(const char *call, const File &file)
{
    Calls &now = calls();
    if (now.struck.isEmpty()) {
        if (now.left == 0 || --now.left != 0)
            return false;
        now.struck = QLatin1StringView(call) + u' ' + pathOf(file).section(u'/', -1);
    } else if (now.fault == CallFault::Once) {
        return false;
    }
    errno = now.fault == CallFault::FullDisk ? ENOSPC : EIO;
    return true;
}

/** Makes the call of that name as the system itself offers it, unless it is to go wrong. @p own is
 *  the definition below that stands in front of it. */
template <typename File, typename Own, typename... Arguments>
int callOrFail(const File &file, const char *name, Own *own, Arguments... arguments)
{
    if (calls().fault != CallFault::FullDisk && strikes(name, file))
        return -1;
    own = reinterpret_cast<Own *>(::dlsym(RTLD_NEXT, name));
    return own(arguments...);
}

/** The same for a call that writes. */
template <typename Own, typename... Place>
ssize_t writeOrFail(const char *name, Own *own, int file, const void *data, size_t size,
                    Place... place)
{
    own = reinterpret_cast<Own *>(::dlsym(RTLD_NEXT, name));
    const bool isFirst = calls().struck.isEmpty();
    if (!strikes(name, file))
        return own(file, data, size, place...);
    const bool isTorn =
        isFirst && (calls().fault == CallFault::Death || calls().fault == CallFault::FullDisk);
    const ssize_t written = isTorn ? own(file, data, size / 2, place...) : 0;
    return written > 0 && calls().fault == CallFault::FullDisk ? written : -1;
}

} // namespace

void FailingCalls::arm(int call, CallFault fault)
{
    calls() = {fault, call, {}};
}

QString FailingCalls::disarm()
{
    return std::exchange(calls(), {}).struck;
}

} // namespace saldoro

using saldoro::callOrFail;
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
    return callOrFail(file, "fdatasync", fdatasync, file);
}

int ftruncate64(int file, off64_t size) noexcept
{
    return callOrFail(file, "ftruncate64", ftruncate64, file, size);
}

int unlink(const char *path) noexcept
{
    return callOrFail(path, "unlink", unlink, path);
}

int rename(const char *from, const char *to) noexcept
{
    return callOrFail(to, "rename", rename, from, to);
}

int renameat2(int fromFolder, const char *from, int toFolder, const char *to,
              unsigned flags) noexcept
{
    return callOrFail(to, "renameat2", renameat2, fromFolder, from, toFolder, to, flags);
}

int linkat(int fromFolder, const char *from, int toFolder, const char *to, int flags) noexcept
{
    return callOrFail(to, "linkat", linkat, fromFolder, from, toFolder, to, flags);
}

int usleep(useconds_t /*microseconds*/)
{
    return 0;
}

} // extern "C"
