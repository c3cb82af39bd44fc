#include "database/database.h"

#include "common/errors.h"
#include "database/connection.h"
#include "database/record_rows.h"
#include "database/sql_text.h"
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

/** Makes a new, empty file; tells why it can't. */
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

/** The statement that made the table ("table") or stored query ("view") of that name; no text when
 *  there is none. */
QString definitionOf(const std::shared_ptr<Connection> &file, const QString &type,
                     const QString &name)
{
    Statement query(
        file,
        u"SELECT sql FROM sqlite_master WHERE type = '%1' AND name = ? COLLATE NOCASE"_s.arg(type),
        name);
    const QByteArray text = name.toUtf8();
    query.bind(1, QByteArrayView(text));
    return query.step() ? query.text(0) : QString();
}

} // namespace

Database::Database(std::shared_ptr<Connection> file)
    : m_file(std::move(file))
{
}

Database Database::create(const QString &path, const QString & /*locale*/)
{
    const QString machinePath = MachinePath(path);
    createFile(machinePath);
    try {
        return Database(std::make_shared<Connection>(machinePath, FileAccess::Create));
    } catch (...) {
        QFile::remove(machinePath); // nothing but the empty file that was just made
        throw;
    }
}

Database Database::open(const QString &path, int lockWait)
{
    return Database(
        std::make_shared<Connection>(MachinePath(path), FileAccess::ReadWrite, lockWait));
}

Database Database::openReadOnly(const QString &path)
{
    return Database(std::make_shared<Connection>(MachinePath(path), FileAccess::ReadOnly));
}

void Database::appendTableDef(const TableDef &table)
{
    Statement(m_file, CreateTableSql(table), table.name()).run();
}

std::optional<TableDef> Database::tableDef(const QString &name) const
{
    const QString definition = definitionOf(m_file, u"table"_s, name);
    if (definition.isEmpty())
        return std::nullopt;
    TableDef table(name);
    const Statement columns(m_file, u"SELECT * FROM "_s + QuotedName(name), name);
    for (const FieldDef &field : columns.fields(0)) {
        table.appendField(field.name, field.type, field.size);
        table.field(field.name).allowZeroLength =
            !definition.contains(QuotedName(ZeroLengthConstraint + field.name));
    }
    return table;
}

bool Database::isStoredQuery(const QString &name) const
{
    return !definitionOf(m_file, u"view"_s, name).isEmpty();
}

void Database::deleteAll(const QString &table)
{
    Statement(m_file, u"DELETE FROM "_s + QuotedName(table), table).run();
}

RecordSet Database::openRecordSet(const QString &sql) const
{
    const EngineQuery query = EngineQueryFor(sql);
    const QString definition = query.singleTable.isEmpty()
                                   ? QString()
                                   : definitionOf(m_file, u"table"_s, query.singleTable);
    const bool hasRowIds =
        !definition.isEmpty() && !definition.contains(u"WITHOUT ROWID"_s, Qt::CaseInsensitive);
    Statement statement(m_file, hasRowIds ? query.textWithRowId : query.text, query.singleTable);
    if (!statement.isQuery())
        throw DatabaseError(DatabaseFault::SyntaxError, path(), {}, {}, sql);
    return RecordSet(
        std::make_unique<RecordRows>(m_file, std::move(statement), query.singleTable,
                                     hasRowIds ? RecordAccess::Updatable : RecordAccess::ReadOnly));
}

QString Database::backUpBeside() const
{
    const QFileInfo original(path());
    const QString name =
        original.dir().filePath(original.completeBaseName() + u" copia "_s +
                                QDateTime::currentDateTime().toString(u"yyyy-MM-dd HH.mm.ss"_s));
    QString path = name + u".mdb"_s;
    for (int number = 2; QFile::exists(path); ++number)
        path = name + u" (%1).mdb"_s.arg(number);
    createFile(path);
    try {
        Connection copy(path, FileAccess::Create);
        m_file->copyTo(copy);
    } catch (...) {
        QFile::remove(path); // nothing but the copy that did not succeed
        throw;
    }
    return path;
}

QString Database::path() const
{
    return m_file->path();
}

Transaction::Transaction(Database &database)
    : m_file(database.m_file)
{
    if (m_file->isReadOnly()) // which the engine would tell at the first change only
        throw DatabaseError(DatabaseFault::ReadOnly, m_file->path());
    Statement(m_file, u"BEGIN IMMEDIATE"_s).run();
    m_isOpen = true;
}

Transaction::~Transaction()
{
    try {
        if (m_isOpen)
            Statement(m_file, u"ROLLBACK"_s).run();
    } catch (const std::exception &) {
        // The engine takes everything back at the latest when the file is closed or opened next.
    }
}

void Transaction::commit()
{
    Statement(m_file, u"COMMIT"_s).run();
    m_isOpen = false;
}

} // namespace saldoro
