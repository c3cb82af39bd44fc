#include "database/engine_error.h"

#include "common/errors.h"
#include "database/sql_text.h"

#include <QFileInfo>
#include <QRegularExpression>

#include <algorithm>
#include <array>
#include <new>
#include <sqlite3.h>

namespace saldoro {

using namespace Qt::StringLiterals;

namespace {

DatabaseError statementError(const QString &message, const QString &path, const QString &table)
{
    static const QRegularExpression missing(u"^no such (table|column): (?:.*\\.)?(.+)$"_s);
    static const QRegularExpression unreadable(
        u"^(?:near |incomplete input|unrecognized token|ambiguous column name)|syntax error"_s);
    const QRegularExpressionMatch name = missing.match(message);
    if (name.captured(1) == u"table")
        return {DatabaseFault::TableMissing, path, name.captured(2)};
    if (name.hasMatch())
        return {DatabaseFault::FieldMissing, path, table, name.captured(2)};
    const bool isUnreadable = unreadable.match(message).hasMatch();
    return {
        isUnreadable ? DatabaseFault::SyntaxError : DatabaseFault::Other, path, table, {}, message};
}

DatabaseError constraintError(const QString &message, const QString &path, const QString &table)
{
    static const QRegularExpression empty(u"^CHECK constraint failed: "_s + ZeroLengthConstraint +
                                          u"(.+)$"_s);
    static const QRegularExpression null(u"^NOT NULL constraint failed: (?:.*\\.)?(.+)$"_s);
    if (const auto field = empty.match(message); field.hasMatch())
        return {DatabaseFault::ZeroLengthRefused, path, table, field.captured(1)};
    if (const auto field = null.match(message); field.hasMatch())
        return {DatabaseFault::NullValue, path, table, field.captured(1)};
    return {DatabaseFault::Other, path, table, {}, message};
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
        return DatabaseFault::Locked;
    case SQLITE_READONLY:
        return DatabaseFault::ReadOnly;
    case SQLITE_NOTADB:
    case SQLITE_CORRUPT:
        return DatabaseFault::NotADatabase;
    case SQLITE_FULL:
        return DatabaseFault::DiskFull;
    case SQLITE_IOERR:
        return isFailedReading(code) ? DatabaseFault::ReadFailed : DatabaseFault::DiskFull;
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
        throw statementError(message, path, table);
    case SQLITE_CONSTRAINT:
        throw constraintError(message, path, table);
    default:
        const DatabaseFault fault = faultOf(code, path);
        const bool needsDetail = fault == DatabaseFault::Other ||
                                 fault == DatabaseFault::DiskFull ||
                                 fault == DatabaseFault::ReadFailed;
        throw DatabaseError(fault, path, table, {}, needsDetail ? message : QString());
    }
}

} // namespace saldoro
