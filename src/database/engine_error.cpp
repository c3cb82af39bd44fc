#include "database/engine_error.h"

#include "common/errors.h"

#include <QFileInfo>

#include <algorithm>
#include <array>
#include <new>
#include <optional>
#include <sqlite3.h>

namespace saldoro {

namespace {

/** What follows @p beginning in @p message, when it begins so. */
std::optional<QString> after(const QString &message, QStringView beginning)
{
    if (!message.startsWith(beginning))
        return std::nullopt;
    return message.sliced(beginning.size());
}

/** "Fatture.Npag" and "main.Fatture" without what stands before the dot. */
QString lastName(const QString &qualified)
{
    return qualified.sliced(qualified.lastIndexOf(u'.') + 1);
}

DatabaseError statementError(const QString &message, const QString &path, const QString &table)
{
    if (const auto name = after(message, u"no such table: "))
        return {DatabaseFault::TableMissing, path, lastName(*name)};
    if (const auto name = after(message, u"no such column: "))
        return {DatabaseFault::FieldMissing, path, table, lastName(*name)};
    if (const auto rest = after(message, u"table ")) {
        const QStringView link = u" has no column named ";
        const qsizetype end = rest->indexOf(link);
        if (end >= 0)
            return {DatabaseFault::FieldMissing, path, rest->first(end),
                    rest->sliced(end + link.size())};
    }
    const bool unreadable = message.startsWith(u"near ") || message.contains(u"syntax error") ||
                            message.startsWith(u"incomplete input") ||
                            message.startsWith(u"unrecognized token") ||
                            message.startsWith(u"ambiguous column name");
    return {
        unreadable ? DatabaseFault::SyntaxError : DatabaseFault::Other, path, table, {}, message};
}

DatabaseError constraintError(int code, const QString &message, const QString &path,
                              const QString &table)
{
    if (const auto name = after(message, u"CHECK constraint failed: ")) {
        if (const auto field = after(*name, QString(ZeroLengthConstraint)))
            return {DatabaseFault::ZeroLengthRefused, path, table, *field};
    }
    if (const auto field = after(message, u"NOT NULL constraint failed: "))
        return {DatabaseFault::NullValue, path, table, lastName(*field)};
    const bool wrongType = code == SQLITE_CONSTRAINT_DATATYPE;
    return {
        wrongType ? DatabaseFault::TypeMismatch : DatabaseFault::Other, path, table, {}, message};
}

/** A file that can't be opened: missing, no file at all, or its folder takes no journal. */
DatabaseFault cannotOpenFault(const QString &path)
{
    const QFileInfo file(path);
    if (!file.exists())
        return DatabaseFault::FileMissing;
    return file.isFile() ? DatabaseFault::ReadOnly : DatabaseFault::NotADatabase;
}

/** Whether nothing was lost: the failure came before anything was to be written. */
bool isFailedReading(int code)
{
    constexpr std::array readingCodes{SQLITE_IOERR_READ,   SQLITE_IOERR_SHORT_READ,
                                      SQLITE_IOERR_FSTAT,  SQLITE_IOERR_ACCESS,
                                      SQLITE_IOERR_RDLOCK, SQLITE_IOERR_CHECKRESERVEDLOCK,
                                      SQLITE_IOERR_LOCK};
    return std::find(readingCodes.begin(), readingCodes.end(), code) != readingCodes.end();
}

DatabaseFault faultOf(int code, const QString &path)
{
    if (code == SQLITE_READONLY_DBMOVED)
        return DatabaseFault::FileMissing;
    switch (code & 0xFF) {
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
    case SQLITE_PROTOCOL:
        return DatabaseFault::Locked;
    case SQLITE_READONLY:
    case SQLITE_PERM:
        return DatabaseFault::ReadOnly;
    case SQLITE_NOTADB:
    case SQLITE_CORRUPT:
    case SQLITE_FORMAT:
        return DatabaseFault::NotADatabase;
    case SQLITE_FULL:
        return DatabaseFault::DiskFull;
    case SQLITE_IOERR:
        return isFailedReading(code) ? DatabaseFault::ReadFailed : DatabaseFault::DiskFull;
    case SQLITE_CANTOPEN:
        return cannotOpenFault(path);
    case SQLITE_MISMATCH:
        return DatabaseFault::TypeMismatch;
    case SQLITE_TOOBIG:
        return DatabaseFault::FieldTooSmall;
    default:
        return DatabaseFault::Other;
    }
}

} // namespace

void ThrowEngineError(int code, const QString &message, const QString &path, const QString &table)
{
    switch (code & 0xFF) {
    case SQLITE_NOMEM:
        throw std::bad_alloc();
    case SQLITE_ERROR:
        throw statementError(message, path, table);
    case SQLITE_CONSTRAINT:
        throw constraintError(code, message, path, table);
    default:
        const DatabaseFault fault = faultOf(code, path);
        const bool needsDetail = fault == DatabaseFault::Other ||
                                 fault == DatabaseFault::DiskFull ||
                                 fault == DatabaseFault::ReadFailed;
        throw DatabaseError(fault, path, table, {}, needsDetail ? message : QString());
    }
}

} // namespace saldoro
