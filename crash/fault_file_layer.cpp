#include "fault_file_layer.h"

#include <limits>
#include <new>
#include <sqlite3.h>
#include <stdexcept>

namespace saldoro {

namespace {

struct Layer
{
    sqlite3_vfs *system = nullptr;
    sqlite3_vfs own{};
    int callsLeft = std::numeric_limits<int>::max();
    FaultSpan span = FaultSpan::Once;
    const char *struck = nullptr;
    qint64 waitedMicroseconds = 0;
};

Layer &layer()
{
    static Layer theLayer;
    return theLayer;
}

/** Counts a call; true when it is to fail. */
bool strikes(const char *call)
{
    Layer &now = layer();
    const bool again = now.struck != nullptr && now.span == FaultSpan::FromThenOn;
    if (!again && (now.callsLeft == std::numeric_limits<int>::max() || --now.callsLeft != 0))
        return false;
    if (now.struck == nullptr)
        now.struck = call;
    return true;
}

/** A file of this layer; the system's file lies behind it in the same piece of memory. */
struct File
{
    sqlite3_file base;

    sqlite3_file *system() { return reinterpret_cast<sqlite3_file *>(this + 1); }
    static File &of(sqlite3_file *file) { return *reinterpret_cast<File *>(file); }
};

const sqlite3_io_methods &systemMethods(sqlite3_file *file)
{
    return *File::of(file).system()->pMethods;
}

int closeFile(sqlite3_file *file)
{
    return systemMethods(file).xClose(File::of(file).system());
}

int readFile(sqlite3_file *file, void *data, int size, sqlite3_int64 place)
{
    return systemMethods(file).xRead(File::of(file).system(), data, size, place);
}

int writeFile(sqlite3_file *file, const void *data, int size, sqlite3_int64 place)
{
    if (strikes("write"))
        return SQLITE_IOERR_WRITE;
    return systemMethods(file).xWrite(File::of(file).system(), data, size, place);
}

int truncateFile(sqlite3_file *file, sqlite3_int64 size)
{
    if (strikes("truncate"))
        return SQLITE_IOERR_TRUNCATE;
    return systemMethods(file).xTruncate(File::of(file).system(), size);
}

int syncFile(sqlite3_file *file, int flags)
{
    if (strikes("sync"))
        return SQLITE_IOERR_FSYNC;
    return systemMethods(file).xSync(File::of(file).system(), flags);
}

int sizeOfFile(sqlite3_file *file, sqlite3_int64 *size)
{
    return systemMethods(file).xFileSize(File::of(file).system(), size);
}

int lockFile(sqlite3_file *file, int lock)
{
    return systemMethods(file).xLock(File::of(file).system(), lock);
}

int unlockFile(sqlite3_file *file, int lock)
{
    return systemMethods(file).xUnlock(File::of(file).system(), lock);
}

int checkReservedLock(sqlite3_file *file, int *result)
{
    return systemMethods(file).xCheckReservedLock(File::of(file).system(), result);
}

int controlFile(sqlite3_file *file, int operation, void *argument)
{
    return systemMethods(file).xFileControl(File::of(file).system(), operation, argument);
}

int sectorSize(sqlite3_file *file)
{
    return systemMethods(file).xSectorSize(File::of(file).system());
}

int deviceCharacteristics(sqlite3_file *file)
{
    return systemMethods(file).xDeviceCharacteristics(File::of(file).system());
}

/** Version 1: no shared memory and no mapped pages, which a rollback journal does not need. */
constexpr sqlite3_io_methods methods = {
    1,
    closeFile,
    readFile,
    writeFile,
    truncateFile,
    syncFile,
    sizeOfFile,
    lockFile,
    unlockFile,
    checkReservedLock,
    controlFile,
    sectorSize,
    deviceCharacteristics,
    nullptr,
    nullptr,
    nullptr,
    nullptr,
    nullptr,
    nullptr,
};

int openFile(sqlite3_vfs * /*own*/, const char *name, sqlite3_file *place, int flags, int *outFlags)
{
    place->pMethods = nullptr; // says that there is nothing to be closed
    if (strikes("open"))
        return SQLITE_CANTOPEN;
    File &file = *new (place) File{{nullptr}};
    sqlite3_vfs *system = layer().system;
    const int code = system->xOpen(system, name, file.system(), flags, outFlags);
    if (file.system()->pMethods != nullptr)
        file.base.pMethods = &methods;
    return code;
}

int deleteFile(sqlite3_vfs * /*own*/, const char *name, int syncFolder)
{
    if (strikes("delete"))
        return SQLITE_IOERR_DELETE;
    return layer().system->xDelete(layer().system, name, syncFolder);
}

int waitInFile(sqlite3_vfs * /*own*/, int microseconds)
{
    layer().waitedMicroseconds += microseconds;
    return microseconds;
}

} // namespace

void FaultFileLayer::install()
{
    Layer &now = layer();
    now.system = sqlite3_vfs_find(nullptr);
    if (now.system == nullptr)
        throw std::runtime_error("the engine has no file layer");
    now.own = *now.system; // what is not replaced below takes no notice of whose layer calls it
    now.own.szOsFile = static_cast<int>(sizeof(File)) + now.system->szOsFile;
    now.own.pNext = nullptr;
    now.own.zName = "saldoro-faults";
    now.own.xOpen = openFile;
    now.own.xDelete = deleteFile;
    now.own.xSleep = waitInFile;
    if (sqlite3_vfs_register(&now.own, 1) != SQLITE_OK)
        throw std::runtime_error("the file layer was not taken");
}

void FaultFileLayer::arm(int call, FaultSpan span)
{
    layer().callsLeft = call;
    layer().span = span;
    layer().struck = nullptr;
}

bool FaultFileLayer::disarm()
{
    const bool struck = layer().struck != nullptr;
    layer().callsLeft = std::numeric_limits<int>::max();
    layer().span = FaultSpan::Once;
    return struck;
}

const char *FaultFileLayer::struckCall()
{
    return layer().struck == nullptr ? "nothing" : layer().struck;
}

qint64 FaultFileLayer::takeWaited()
{
    const qint64 waited = layer().waitedMicroseconds / 1000;
    layer().waitedMicroseconds = 0;
    return waited;
}

} // namespace saldoro
