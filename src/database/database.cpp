#include "database/database.h"

#include "common/errors.h"
#include "database/database_file.h"
#include "database/record_set_data.h"
#include "database/sql_text.h"
#include "database/statement.h"
#include "database/table_schema.h"
#include "database/table_sql.h"
#include "platform/machine_path.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <optional>
#include <utility>

namespace saldoro {

using namespace Qt::StringLiterals;

namespace {

/** Makes a new file that holds one page of a database, as the engine does for a first change. */
void createFile(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::NewOnly)) {
        const QFileInfo info(path);
        if (info.exists())
            throw DatabaseError(DatabaseFault::FileExists, path);
        throw DatabaseError(info.absoluteDir().exists() ? DatabaseFault::ReadOnly
                                                        : DatabaseFault::FileMissing,
                            path);
    }
}

std::optional<Statement> prepareWithRowId(const std::shared_ptr<DatabaseFile> &file,
                                          const EngineQuery &query)
{
    if (query.singleTable.isEmpty() || !HasTable(file, query.singleTable))
        return std::nullopt;
    try {
        return Statement(file, query.textWithRowId, query.singleTable);
    } catch (const DatabaseError &error) {
        // A table may be kept without row ids; a field missing elsewhere comes up again.
        if (error.fault() != DatabaseFault::FieldMissing)
            throw;
        return std::nullopt;
    }
}

FieldType fieldType(const ColumnInfo &column)
{
    switch (column.kind) {
    case ColumnKind::Text:
        return column.size > 0 ? FieldType::Text : FieldType::Memo;
    case ColumnKind::Whole16:
        return FieldType::Integer;
    case ColumnKind::Whole32:
        return FieldType::Long;
    case ColumnKind::Currency:
        return FieldType::Currency;
    case ColumnKind::Date:
        return FieldType::Date;
    default:
        return FieldType::Undeclared;
    }
}

} // namespace

Database::Database(std::shared_ptr<DatabaseFile> file)
    : m_file(std::move(file))
{
}

Database::Database(Database &&other) noexcept = default;

Database &Database::operator=(Database &&other) noexcept
{
    if (this != &other) {
        close();
        m_file = std::move(other.m_file);
    }
    return *this;
}

Database::~Database()
{
    close();
}

Database Database::create(const QString &path, const QString & /*locale*/)
{
    const QString machinePath = MachinePath(path);
    createFile(machinePath);
    try {
        return Database(
            std::make_shared<DatabaseFile>(machinePath, FileAccess::Create, LockWaitMilliseconds));
    } catch (...) {
        QFile::remove(machinePath); // nothing but the empty file that was just made
        throw;
    }
}

Database Database::open(const QString &path)
{
    return Database(std::make_shared<DatabaseFile>(MachinePath(path), FileAccess::ReadWrite,
                                                   LockWaitMilliseconds));
}

Database Database::openReadOnly(const QString &path)
{
    return Database(std::make_shared<DatabaseFile>(MachinePath(path), FileAccess::ReadOnly,
                                                   LockWaitMilliseconds));
}

void Database::appendTableDef(const TableDef &table)
{
    Statement(file(), CreateTableSql(table), table.name()).step();
}

std::optional<TableDef> Database::tableDef(const QString &name) const
{
    if (!HasTable(file(), name))
        return std::nullopt;
    std::vector<ColumnInfo> columns =
        Statement(m_file, u"SELECT * FROM "_s + QuotedName(name), name).columns(0);
    CompleteColumns(m_file, name, columns);
    TableDef table(name);
    for (const ColumnInfo &column : columns) {
        table.appendField(column.name, fieldType(column), column.size);
        table.field(column.name).allowZeroLength = column.allowsZeroLength;
    }
    return table;
}

bool Database::isStoredQuery(const QString &name) const
{
    Statement query(file(),
                    u"SELECT 1 FROM sqlite_master WHERE type = 'view' "
                    "AND name = ? COLLATE NOCASE"_s,
                    name);
    query.bind(1, name.toUtf8());
    return query.step();
}

void Database::deleteAll(const QString &table)
{
    Statement(file(), u"DELETE FROM "_s + QuotedName(table), table).step();
}

QStringList Database::tableNames() const
{
    Statement query(
        file(), EngineQueryFor(u"SELECT name FROM sqlite_master WHERE type IN ('table', 'view') "
                               "AND name NOT LIKE 'sqlite\\_%' ESCAPE '\\' ORDER BY name"_s)
                    .text);
    QStringList names;
    while (query.step())
        names.append(query.text(0));
    return names;
}

RecordSet Database::openRecordSet(const QString &sql) const
{
    const EngineQuery query = EngineQueryFor(sql);
    std::optional<Statement> statement = prepareWithRowId(file(), query);
    const RecordAccess access = statement ? RecordAccess::Updatable : RecordAccess::ReadOnly;
    if (!statement)
        statement.emplace(m_file, query.text, query.singleTable);
    if (!statement->isQuery())
        throw DatabaseError(DatabaseFault::SyntaxError, path(), {}, {}, sql);
    return RecordSet(
        std::make_unique<RecordSetData>(m_file, std::move(*statement), query.singleTable, access));
}

QStringList Database::integrityReport() const
{
    Statement query(file(), u"PRAGMA integrity_check(20)"_s);
    QStringList faults;
    while (query.step())
        faults.append(query.text(0));
    return faults == QStringList(u"ok"_s) ? QStringList() : faults;
}

void Database::backUpTo(const QString &path) const
{
    createFile(path);
    try {
        DatabaseFile copy(path, FileAccess::Create, LockWaitMilliseconds);
        file()->copyTo(copy);
    } catch (...) {
        QFile::remove(path); // nothing but the copy that did not succeed
        throw;
    }
}

QString Database::backUpBeside() const
{
    QString beginning = path();
    if (beginning.endsWith(u".mdb", Qt::CaseInsensitive))
        beginning.chop(4);
    beginning += u" copia "_s + QDateTime::currentDateTime().toString(u"yyyy-MM-dd HH.mm.ss"_s);
    constexpr int MostTries = 100;
    for (int attempt = 1;; ++attempt) {
        QString copy = beginning + (attempt == 1 ? QString() : u" (%1)"_s.arg(attempt)) + u".mdb"_s;
        try {
            backUpTo(copy);
            return copy;
        } catch (const DatabaseError &error) {
            if (error.fault() != DatabaseFault::FileExists || attempt == MostTries)
                throw;
        }
    }
}

void Database::setLockWait(int milliseconds)
{
    file()->setLockWait(milliseconds);
}

void Database::close()
{
    if (m_file)
        m_file->close();
}

QString Database::path() const
{
    return m_file ? m_file->path() : QString();
}

const std::shared_ptr<DatabaseFile> &Database::file() const
{
    if (!m_file)
        throw DatabaseError(DatabaseFault::Other, {}, {}, {}, u"nessun archivio aperto"_s);
    return m_file;
}

Transaction::Transaction(Database &database)
    : m_file(database.file())
{
    Statement(m_file, u"BEGIN IMMEDIATE"_s).step();
    m_isOpen = true;
}

Transaction::~Transaction()
{
    if (!m_isOpen || !m_file->isOpen())
        return;
    try {
        Statement(m_file, u"ROLLBACK"_s).step();
    } catch (const std::exception &) {
        m_file->close(); // which also takes back what is not committed
    }
}

void Transaction::commit()
{
    Statement(m_file, u"COMMIT"_s).step();
    m_isOpen = false;
}

} // namespace saldoro
