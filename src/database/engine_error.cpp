#include "database/engine_error.h"

#include "database/sql_text.h"

#include <QFileInfo>
#include <QRegularExpression>

#include <array>
#include <filesystem>
#include <new>
#include <sqlite3.h>
#include <system_error>
#include <utility>

namespace saldoro {

using namespace Qt::StringLiterals;

namespace {

/** What a more exact code belongs to. */
int kindOf(int code)
{
    return code & 0xFF;
}

/** What the engine tells in words only, which hold the name of a table or field. */
DatabaseError errorInWords(int kind, const QString &message, const QString &path,
                           const QString &table)
{
    using enum DatabaseFault;
    const QList<std::pair<QString, DatabaseFault>> faults{
        {u"^no such table: (?:.*\\.)?(.+)$"_s, TableMissing},
        {u"^no such column: (?:.*\\.)?(.+)$"_s, FieldMissing},
        {u"^NOT NULL constraint failed: (?:.*\\.)?(.+)$"_s, NullValue},
        {u"^CHECK constraint failed: "_s + ZeroLengthConstraint + u"(.+)$"_s, ZeroLengthRefused},
        {u"^attached databases must use the same text encoding"_s, OtherEncoding},
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
    return {kind == SQLITE_CONSTRAINT ? NotStored : Other, path, table, {}, message};
}

/** What the engine's codes stand for. The more exact ones stand before those that they belong to,
 *  which are their lowest byte. */
constexpr std::array<std::pair<int, DatabaseFault>, 16> codeFaults{{
    {SQLITE_BUSY, DatabaseFault::Locked},
    {SQLITE_LOCKED, DatabaseFault::Locked},
    {SQLITE_READONLY_DBMOVED, DatabaseFault::FileMissing},
    {SQLITE_READONLY, DatabaseFault::ReadOnly},
    {SQLITE_NOTADB, DatabaseFault::NotADatabase},
    {SQLITE_CORRUPT, DatabaseFault::NotADatabase},
    {SQLITE_FULL, DatabaseFault::DiskFull},
    // The engine gives these before it writes, so no write is lost.
    {SQLITE_IOERR_READ, DatabaseFault::ReadFailed},
    {SQLITE_IOERR_SHORT_READ, DatabaseFault::ReadFailed},
    {SQLITE_IOERR_FSTAT, DatabaseFault::ReadFailed},
    {SQLITE_IOERR_ACCESS, DatabaseFault::ReadFailed},
    {SQLITE_IOERR_RDLOCK, DatabaseFault::ReadFailed},
    {SQLITE_IOERR_CHECKRESERVEDLOCK, DatabaseFault::ReadFailed},
    {SQLITE_IOERR_LOCK, DatabaseFault::ReadFailed},
    {SQLITE_IOERR, DatabaseFault::DiskFull},
    {SQLITE_INTERRUPT, DatabaseFault::Endless}, // by the clock of the connection
}};

DatabaseFault faultOf(int code, const QString &path)
{
    if (kindOf(code) == SQLITE_CANTOPEN)
        return FileFault(path).value_or(DatabaseFault::ReadOnly); // its folder takes no journal
    for (const auto &[known, fault] : codeFaults) {
        if (known == code || known == kindOf(code))
            return fault;
    }
    return DatabaseFault::Other;
}

} // namespace

std::optional<DatabaseFault> FileFault(const QString &path)
{
    const QFileInfo file(path);
    std::error_code fault;
    if (!std::filesystem::exists(path.toStdU16String(), fault)) // a file behind a closed folder
        return fault ? DatabaseFault::ReadFailed : DatabaseFault::FileMissing;
    if (!file.isFile() || file.size() == 0)
        return DatabaseFault::NotADatabase;
    return file.isReadable() ? std::nullopt : std::optional(DatabaseFault::ReadFailed);
}

void ThrowEngineError(int code, const QString &message, const QString &path, const QString &table)
{
    const int kind = kindOf(code);
    if (kind == SQLITE_NOMEM)
        throw std::bad_alloc();
    if (kind == SQLITE_ERROR || kind == SQLITE_CONSTRAINT)
        throw errorInWords(kind, message, path, table);
    const DatabaseFault fault = faultOf(code, path);
    const bool needsDetail = fault == DatabaseFault::Other || fault == DatabaseFault::DiskFull ||
                             fault == DatabaseFault::ReadFailed;
    throw DatabaseError(fault, path, table, {}, needsDetail ? message : QString());
}

} // namespace saldoro
