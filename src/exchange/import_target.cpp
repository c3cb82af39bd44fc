#include "exchange/import_target.h"

#include "common/errors.h"
#include "database/table_appender.h"
#include "exchange/archive_rows.h"

#include <QFile>
#include <QFileInfo>

namespace saldoro {

using namespace Qt::StringLiterals;

namespace {

void appendRecords(Database &database, const CsvTable &table, Progress &progress)
{
    QStringList fields;
    for (const FieldDef &field : table.table->definition.fields())
        fields.append(field.name);
    TableAppender appender(database, table.table->name(), fields);
    qsizetype done = 0;
    for (const CsvRecord &record : table.records) {
        appender.append(record.values);
        progress.show(u"Scrittura di "_s + table.table->name(), ++done,
                      static_cast<qsizetype>(table.records.size()));
    }
}

void appendStandardCodes(Database &database)
{
    TableAppender appender(database, u"Funzioni"_s, {u"CodInt"_s, u"CodExt"_s, u"Desc"_s});
    for (const CodeMapping &code : StandardCodes())
        appender.append({code.internalCode, code.externalCode, code.description});
}

/** The field of the current record; what no file can tell is a floating number. */
NewValue storedValue(const RecordSet &records, const FieldDef &field)
{
    try {
        return ExactValue(field, records.field(field.name)).value_or(NewValue(0.0));
    } catch (const DatabaseError &error) {
        if (error.fault() != DatabaseFault::FieldMissing)
            throw;
        return 0.0;
    }
}

} // namespace

ImportTarget::ImportTarget(ArchiveFile file, QString path)
    : m_file(file)
    , m_path(std::move(path))
    , m_exists(QFileInfo::exists(m_path))
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
    TableRows rows;
    if (!m_exists)
        return rows;
    RecordSet records = opened().openRecordSet(u"SELECT * FROM "_s + table.name());
    for (; !records.eof(); records.moveNext()) {
        QList<NewValue> &row = rows.emplace_back();
        for (const FieldDef &field : table.definition.fields())
            row.append(storedValue(records, field));
    }
    return rows;
}

void ImportTarget::backUp()
{
    if (m_exists && !m_changes.isEmpty())
        m_copy = opened().backUpBeside();
}

void ImportTarget::write(Progress &progress)
{
    if (m_exists) {
        if (!m_changes.isEmpty())
            change(progress);
        return;
    }
    removeNew(); // of an import that was broken off
    CreateArchiveFile(newPath(), m_file, [&](Database &database) { fill(database, progress); });
}

void ImportTarget::finish()
{
    if (m_transaction)
        m_transaction->commit();
    m_transaction.reset();
    m_database.reset();
    if (!m_exists && !QFile::rename(newPath(), m_path))
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
    QFile::remove(newPath());
    QFile::remove(newPath() + u"-journal"_s);
}

void ImportTarget::fill(Database &database, Progress &progress) const
{
    for (const Change &change : m_changes)
        appendRecords(database, *change.table, progress);
    if (m_file == ArchiveFile::Codes && m_changes.isEmpty())
        appendStandardCodes(database);
}

void ImportTarget::change(Progress &progress)
{
    m_transaction = std::make_unique<Transaction>(opened());
    for (const Change &change : m_changes) {
        const ExchangedTable &table = *change.table->table;
        if (storedRows(table) != change.seen)
            throw FileError(m_path, u"L'archivio è cambiato mentre veniva letto."_s,
                            u"Chiudere Saldoro e ripetere il comando."_s);
        if (!change.seen.isEmpty())
            opened().deleteAll(table.name());
    }
    fill(opened(), progress);
}

} // namespace saldoro
