#include "failing_calls.h"

#include <QFileInfo>

#include <cerrno>
#include <csignal>
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
    bool hasStruck = false;
    QString struck;
    qint64 waitedMicroseconds = 0;
};

Calls &calls()
{
    static Calls theCalls;
    return theCalls;
}

/** What the system itself offers under the name of a call that is defined below. */
template <typename Function>
Function *systemCall(const char *name)
{
    return reinterpret_cast<Function *>(::dlsym(RTLD_NEXT, name));
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
bool strikes(QLatin1StringView call, const File &file)
{
    Calls &now = calls();
    if (now.fault == CallFault::FullDisk && call != "write"_L1)
        return false;
    const bool again = now.hasStruck && now.fault != CallFault::Once;
    if (!again && (now.left == 0 || --now.left != 0))
        return false;
    if (!std::exchange(now.hasStruck, true))
        now.struck = call + u' ' + pathOf(file).section(u'/', -1);
    return true;
}

/** How a call other than a write goes wrong. */
int fail()
{
    if (calls().fault == CallFault::Kill)
        ::kill(::getpid(), SIGKILL);
    errno = EIO;
    return -1;
}

/** The same for a write; @p writeHalf writes the first half of it. */
template <typename WriteHalf>
ssize_t failToWrite(bool isFirst, const WriteHalf &writeHalf)
{
    const CallFault fault = calls().fault;
    if (fault == CallFault::Kill || (fault == CallFault::FullDisk && isFirst)) {
        const ssize_t written = writeHalf();
        if (fault == CallFault::FullDisk && written > 0)
            return written;
    }
    if (fault != CallFault::FullDisk)
        return fail();
    errno = ENOSPC;
    return -1;
}

} // namespace

void FailingCalls::arm(int call, CallFault fault)
{
    calls() = {fault, call, false, {}, 0};
}

bool FailingCalls::disarm()
{
    calls().left = 0;
    return std::exchange(calls().hasStruck, false);
}

QString FailingCalls::struckCall()
{
    return calls().struck;
}

qint64 FailingCalls::takeWaited()
{
    return std::exchange(calls().waitedMicroseconds, 0) / 1000;
}

} // namespace saldoro

using namespace Qt::StringLiterals;
using saldoro::calls;
using saldoro::fail;
using saldoro::failToWrite;
using saldoro::strikes;
using saldoro::systemCall;

// The program's own definitions come before those of the system's library, for the libraries too.
extern "C" {

int open64(const char *path, int flags, ...)
{
    va_list rest;
    va_start(rest, flags);
    const mode_t mode = va_arg(rest, mode_t);
    va_end(rest);
    const bool isForWriting = (flags & (O_WRONLY | O_RDWR)) != 0;
    if (isForWriting && strikes("open"_L1, path))
        return fail();
    return systemCall<int(const char *, int, mode_t)>("open64")(path, flags, mode);
}

ssize_t write(int file, const void *data, size_t size)
{
    const auto system = systemCall<ssize_t(int, const void *, size_t)>("write");
    const bool isFirst = !calls().hasStruck;
    if (strikes("write"_L1, file))
        return failToWrite(isFirst, [&] { return system(file, data, size / 2); });
    return system(file, data, size);
}

ssize_t pwrite64(int file, const void *data, size_t size, off64_t place)
{
    const auto system = systemCall<ssize_t(int, const void *, size_t, off64_t)>("pwrite64");
    const bool isFirst = !calls().hasStruck;
    if (strikes("write"_L1, file))
        return failToWrite(isFirst, [&] { return system(file, data, size / 2, place); });
    return system(file, data, size, place);
}

int fdatasync(int file)
{
    return strikes("sync"_L1, file) ? fail() : systemCall<int(int)>("fdatasync")(file);
}

int ftruncate64(int file, off64_t size) noexcept
{
    return strikes("cut"_L1, file) ? fail()
                                   : systemCall<int(int, off64_t)>("ftruncate64")(file, size);
}

int unlink(const char *path) noexcept
{
    return strikes("delete"_L1, path) ? fail() : systemCall<int(const char *)>("unlink")(path);
}

int rename(const char *from, const char *to) noexcept
{
    return strikes("rename"_L1, to)
               ? fail()
               : systemCall<int(const char *, const char *)>("rename")(from, to);
}

int renameat2(int fromFolder, const char *from, int toFolder, const char *to,
              unsigned flags) noexcept
{
    if (strikes("rename"_L1, to))
        return fail();
    return systemCall<int(int, const char *, int, const char *, unsigned)>("renameat2")(
        fromFolder, from, toFolder, to, flags);
}

int linkat(int fromFolder, const char *from, int toFolder, const char *to, int flags) noexcept
{
    if (strikes("link"_L1, to))
        return fail();
    return systemCall<int(int, const char *, int, const char *, int)>("linkat")(
        fromFolder, from, toFolder, to, flags);
}

int usleep(useconds_t microseconds)
{
    calls().waitedMicroseconds += microseconds;
    return 0;
}

} // extern "C"
