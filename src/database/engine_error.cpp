#include "database/engine_error.h"

#include "common/errors.h"
#include "database/sql_text.h"

#include <QFileInfo>
#include <QRegularExpression>

#include <algorithm>
#include <array>
#include <new>
#include <sqlite3.h>
#include <utility>

namespace saldoro {

using namespace Qt::StringLiterals;

namespace {

/** What the engine tells in words only; in them is the name of a table or field. */
DatabaseError errorInWords(const QString &message, const QString &path, const QString &table)
{
    using enum DatabaseFault;
    const QList<std::pair<QString, DatabaseFault>> faults{
        {u"^no such table: (?:.*\\.)?(.+)$"_s, TableMissing},
        {u"^no such column: (?:.*\\.)?(.+)$"_s, FieldMissing},
        {u"^NOT NULL constraint failed: (?:.*\\.)?(.+)$"_s, NullValue},
        {u"^CHECK constraint failed: "_s + ZeroLengthConstraint + u"(.+)$"_s, ZeroLengthRefused},
        {u"^(near |incomplete input|unrecognized token|ambiguous column name)|syntax error"_s,
         SyntaxError}};
    for (const auto &[words, fault] : faults) {
        const QRegularExpressionMatch match = QRegularExpression(words).match(message);
        if (!match.hasMatch())
            continue;
        const QString name = match.captured(1);
        if (fault == SyntaxError)
            return {fault, path, table, {}, message};
        return fault == TableMissing ? DatabaseError(fault, path, name)
                                     : DatabaseError(fault, path, table, name);
    }
    return {Other, path, table, {}, message};
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
    switch (code & 0xFF) {
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
        return DatabaseFault::Locked;
    case SQLITE_READONLY:
        return code == SQLITE_READONLY_DBMOVED ? DatabaseFault::FileMissing
                                               : DatabaseFault::ReadOnly;
    case SQLITE_NOTADB:
    case SQLITE_CORRUPT:
        return DatabaseFault::NotADatabase;
    case SQLITE_FULL:
        return DatabaseFault::DiskFull;
    case SQLITE_IOERR:
        return isFailedReading(code) ? DatabaseFault::ReadFailed : DatabaseFault::DiskFull;
    case SQLITE_INTERRUPT: // by the clock of the connection
        return DatabaseFault::Endless;
    case SQLITE_CANTOPEN:
        return cannotOpenFault(path);
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
    case SQLITE_CONSTRAINT:
        throw errorInWords(message, path, table);
    default:
        const DatabaseFault fault = faultOf(code, path);
        const bool needsDetail = fault == DatabaseFault::Other ||
                                 fault == DatabaseFault::DiskFull ||
                                 fault == DatabaseFault::ReadFailed;
        throw DatabaseError(fault, path, table, {}, needsDetail ? message : QString());
    }
}

} // namespace saldoro
