#include "exchange/import_target.h"

#include "common/errors.h"
#include "database/table_appender.h"
#include "exchange/progress.h"

#include <QFile>
#include <QFileInfo>

namespace saldoro {

using namespace Qt::StringLiterals;

namespace {

void append(Database &database, const ExchangedTable &table, const TableRows &rows)
{
    QStringList fields;
    for (const FieldDef &field : table.definition.fields())
        fields.append(field.name);
    TableAppender appender(database, table.name(), fields);
    Progress progress(u"Scrittura di "_s + table.name());
    for (qsizetype place = 0; place < rows.size(); ++place) {
        appender.append(rows[place]);
        progress.show(place);
    }
}

} // namespace

ImportTarget::ImportTarget(ArchiveFile file, const QString &path)
    : m_file(file)
    , m_path(path)
    , m_newPath(path + u".nuovo"_s)
    , m_exists(QFileInfo::exists(path))
{
}

ImportTarget::~ImportTarget()
{
    if (!m_exists)
        removeNew();
}

Database &ImportTarget::opened()
{
    if (!m_database)
        m_database = Database::open(m_path);
    return *m_database;
}

std::optional<TableDef> ImportTarget::storedTable(const ExchangedTable &table, QStringList &errors)
{
    if (!m_exists)
        return table.definition;
    std::optional<TableDef> stored = opened().tableDef(table.name());
    if (!stored)
        errors.append(table.fileName() + u": "_s + QFileInfo(m_path).fileName() +
                      (opened().isStoredQuery(table.name())
                           ? u" ha sotto questo nome un'interrogazione, che non si sostituisce."_s
                           : u" non ha questa tabella."_s));
    return stored;
}

TableRows ImportTarget::storedRows(const ExchangedTable &table)
{
    return m_exists ? StoredRows(opened(), table) : TableRows();
}

void ImportTarget::backUp()
{
    if (m_exists && !m_changes.isEmpty())
        m_copy = opened().backUpBeside();
}

void ImportTarget::write()
{
    if (!m_exists) {
        removeNew(); // of an import that was broken off
        CreateArchiveFile(m_newPath, m_file, [this](Database &database) { fill(database); });
    } else if (!m_changes.isEmpty()) {
        m_transaction = std::make_unique<Transaction>(opened());
        fill(opened());
    }
}

void ImportTarget::finish()
{
    if (m_transaction)
        m_transaction->commit();
    m_transaction.reset();
    m_database.reset();
    if (!m_exists && !QFile::rename(m_newPath, m_path))
        throw FileError(m_path, u"L'archivio non può essere creato."_s,
                        u"Controllare i permessi e lo spazio libero sul disco."_s);
}

QString ImportTarget::report() const
{
    const QString name = QFileInfo(m_path).fileName();
    if (!m_exists)
        return name + u": creato\n"_s;
    return m_copy.isEmpty() ? QString() : name + u": cambiato; com'era sta in "_s + m_copy + u'\n';
}

void ImportTarget::removeNew() const
{
    QFile::remove(m_newPath);
    QFile::remove(m_newPath + u"-journal"_s);
}

void ImportTarget::fill(Database &database) const
{
    for (const auto &[table, seen] : m_changes) {
        if (m_exists && StoredRows(database, *table->table) != seen)
            throw FileError(m_path, u"L'archivio è cambiato mentre veniva letto."_s,
                            u"Chiudere Saldoro e ripetere il comando."_s);
        if (!seen.isEmpty())
            database.deleteAll(table->table->name());
        append(database, *table->table, table->rows);
    }
    if (m_file == ArchiveFile::Codes && m_changes.isEmpty())
        append(database, ExchangedTables().front(), StandardCodeRows());
}

} // namespace saldoro
