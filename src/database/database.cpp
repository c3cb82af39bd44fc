#include "database/database.h"

#include "common/errors.h"
#include "database/record_rows.h"
#include "database/sql_text.h"
#include "database/statement.h"
#include "platform/machine_path.h"

#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>

#include <utility>

namespace saldoro {

using namespace Qt::StringLiterals;

namespace {

/** The statement that made the table ("table") or stored query ("view") of that name; no text when
 *  there is none. */
QString definitionOf(const std::shared_ptr<Connection> &file, const QString &type,
                     const QString &name)
{
    Statement query(
        file,
        u"SELECT sql FROM %1.sqlite_master WHERE type = '%2' AND name = ? COLLATE NOCASE"_s.arg(
            file->schema(), type),
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
    CreateEmptyFile(machinePath);
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

Database Database::attach(const QString &path) const
{
    return Database(std::make_shared<Connection>(*m_file, MachinePath(path)));
}

void Database::appendTableDef(const TableDef &table)
{
    Statement(m_file, CreateTableSql(table, m_file->schema()), table.name()).run();
}

std::optional<TableDef> Database::tableDef(const QString &name) const
{
    const QString definition = definitionOf(m_file, u"table"_s, name);
    if (definition.isEmpty())
        return std::nullopt;
    TableDef table(name);
    const Statement columns(m_file, u"SELECT * FROM "_s + QualifiedName(m_file->schema(), name),
                            name);
    for (const FieldDef &field : columns.fields(0))
        table.appendField(field.name, field.type, field.size,
                          !definition.contains(QuotedName(ZeroLengthConstraint + field.name)));
    return table;
}

bool Database::isStoredQuery(const QString &name) const
{
    return !definitionOf(m_file, u"view"_s, name).isEmpty();
}

QStringList Database::triggersOf(const QString &table) const
{
    Statement query(m_file,
                    u"SELECT name FROM %1.sqlite_master WHERE type = 'trigger' AND tbl_name = ? "
                    "COLLATE NOCASE"_s.arg(m_file->schema()),
                    table);
    const QByteArray text = table.toUtf8();
    query.bind(1, QByteArrayView(text));
    QStringList names;
    while (query.step())
        names.append(query.text(0));
    return names;
}

void Database::deleteAll(const QString &table)
{
    const QString from = u" FROM "_s + QualifiedName(m_file->schema(), table);
    Statement(m_file, u"DELETE"_s + from, table).run();
    if (Statement(m_file, u"SELECT 1"_s + from, table).step())
        throw DatabaseError(DatabaseFault::NotStored, path(), table);
}

RecordSet Database::openRecordSet(const QString &sql) const
{
    static const QRegularExpression noRowIds(u"\\bWITHOUT\\s+ROWID\\b"_s,
                                             QRegularExpression::CaseInsensitiveOption);
    const EngineQuery query = EngineQueryFor(sql, m_file->schema());
    Statement statement(m_file, query.text, query.singleTable);
    if (!statement.isQuery())
        throw DatabaseError(DatabaseFault::SyntaxError, path(), {}, {}, sql);
    QString rowIdName;
    if (const QString definition = query.singleTable.isEmpty()
                                       ? QString()
                                       : definitionOf(m_file, u"table"_s, query.singleTable);
        !definition.isEmpty() && !definition.contains(noRowIds))
        rowIdName = RowIdName(statement.fields(0));
    if (!rowIdName.isEmpty())
        statement = Statement(m_file, query.textWithRowId(rowIdName), query.singleTable);
    return RecordSet(
        std::make_unique<RecordRows>(m_file, std::move(statement), query.singleTable, rowIdName));
}

QString Database::damage() const
{
    // The engine reads what the last page lacks as nulls, and finds that in order.
    Statement page(m_file, u"PRAGMA %1.page_size"_s.arg(m_file->schema()));
    if (page.step() && QFileInfo(path()).size() % page.whole(0) != 0)
        return u"manca la fine"_s;
    Statement check(m_file, u"PRAGMA %1.quick_check(1)"_s.arg(m_file->schema()));
    const QString found = check.step() ? check.text(0) : QString();
    return found == "ok"_L1 ? QString() : found;
}

bool Database::hasPlainJournal(const QString &path)
{
    constexpr qint64 writerVersion = 18; // in the header: which programs may write the file, and so
    constexpr char writeAheadLog = 2;
    QFile file(MachinePath(path));
    char version = 0;
    const bool isRead = QFileInfo(file).isFile() && // to open a pipe would wait for ever
                        file.open(QIODevice::ReadOnly) && file.seek(writerVersion) &&
                        file.getChar(&version);
    return !isRead || version != writeAheadLog;
}

QString Database::noPlainJournalProblem()
{
    return u"ha un giornale (WAL) che lascia altri file accanto, senza i quali una copia non vale: "
           "riportarlo al giornale normale nel programma che lo tiene."_s;
}

void Database::requirePlainJournal(const QString &path)
{
    if (!hasPlainJournal(path))
        throw FileError(MachinePath(path), u"Il file "_s + noPlainJournalProblem());
}

void Database::requireNoJournal(const QString &path)
{
    if (const QString journal = journalPath(MachinePath(path)); QFileInfo::exists(journal))
        throw FileError(journal, u"Il file è di un archivio che manca."_s,
                        u"Rimettere l'archivio al suo posto, o spostare questo file."_s);
}

QString Database::path() const
{
    return m_file->path();
}

Transaction::Transaction(const Database &database, TransactionKind kind)
    : m_files(std::make_shared<Connection>(database.m_file->ofAllFiles()))
{
    const bool writes = kind == TransactionKind::Writing;
    if (writes && database.m_file->isReadOnly()) // which the engine tells at the first change only
        throw DatabaseError(DatabaseFault::ReadOnly, database.path());
    Statement(m_files, writes ? u"BEGIN IMMEDIATE"_s : u"BEGIN"_s).run();
    m_isOpen = true;
    if (writes)
        m_superJournalsOfOthers = m_files->superJournals();
}

Transaction::~Transaction()
{
    if (!m_isOpen)
        return;
    try {
        Statement(m_files, u"ROLLBACK"_s).run();
    } catch (const std::exception &) {
        // The engine takes everything back at the latest when the file is closed or opened next.
    }
    if (m_superJournalsOfOthers)
        m_files->removeSuperJournalsBut(*m_superJournalsOfOthers);
}

void Transaction::commit()
{
    Statement(m_files, u"COMMIT"_s).run();
    m_isOpen = false;
}

} // namespace saldoro
