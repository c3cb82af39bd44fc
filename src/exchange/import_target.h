#pragma once

#include "common/errors.h"
#include "database/table_appender.h"
#include "exchange/csv_table.h"
#include "exchange/progress.h"

#include <QFile>
#include <QFileInfo>

#include <memory>
#include <optional>
#include <utility>

namespace saldoro {

using namespace Qt::StringLiterals;

/**
 * One database that an import fills. One that is there changes by one transaction; one that is
 * missing is made aside, with all its tables, and renamed.
 */
class ImportTarget
{
public:
    ImportTarget(ArchiveFile file, const QString &path)
        : m_file(file)
        , m_path(path)
        , m_exists(QFileInfo::exists(path))
    {
    }
    /** Takes back what was not finished. */
    ~ImportTarget()
    {
        if (!m_exists)
            removeNew();
    }
    Q_DISABLE_COPY_MOVE(ImportTarget)

    bool exists() const { return m_exists; }
    const QString &path() const { return m_path; }

    Database &opened()
    {
        if (!m_database)
            m_database = Database::open(m_path);
        return *m_database;
    }

    TableRows storedRows(const ExchangedTable &table)
    {
        return m_exists ? StoredRows(opened(), table) : TableRows();
    }

    /** The rows of @p table, which must live as long, take the place of @p seen. */
    void add(const CsvTable &table, TableRows seen) { m_changes.append({&table, std::move(seen)}); }

    // The three steps of writing, to be taken for all databases one after the other. What throws
    // leaves this database as it was.
    void backUp()
    {
        if (m_exists && !m_changes.isEmpty())
            m_copy = opened().backUpBeside();
    }

    void write()
    {
        if (!m_exists) {
            removeNew(); // of an import that was broken off
            CreateArchiveFile(m_newPath, m_file, [this](Database &database) { fill(database); });
        } else if (!m_changes.isEmpty()) {
            m_transaction = std::make_unique<Transaction>(opened());
            fill(opened());
        }
    }

    /** Gives what has been done to the file: empty for nothing. */
    QString finish()
    {
        if (m_transaction)
            m_transaction->commit();
        m_transaction.reset();
        m_database.reset();
        const QString name = QFileInfo(m_path).fileName();
        if (m_exists)
            return m_copy.isEmpty() ? QString()
                                    : name + u": cambiato; com'era sta in "_s + m_copy + u'\n';
        if (!QFile::rename(m_newPath, m_path))
            throw FileError(m_path, u"L'archivio non può essere creato."_s,
                            u"Controllare i permessi e lo spazio libero sul disco."_s);
        return name + u": creato\n"_s;
    }

private:
    static void append(Database &database, const ExchangedTable &table, const TableRows &rows)
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

    void removeNew() const
    {
        QFile::remove(m_newPath);
        QFile::remove(m_newPath + u"-journal"_s);
    }

    void fill(Database &database) const
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

    ArchiveFile m_file;
    QString m_path;
    QString m_newPath = m_path + u".nuovo"_s;
    bool m_exists;
    std::optional<Database> m_database;
    std::unique_ptr<Transaction> m_transaction;
    QList<std::pair<const CsvTable *, TableRows>> m_changes;
    QString m_copy;
};

} // namespace saldoro
