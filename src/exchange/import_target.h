#pragma once

#include "exchange/csv_table.h"

#include <memory>
#include <optional>

namespace saldoro {

/**
 * One database that an import fills. One that is there changes by one transaction; one that is
 * missing is made aside, with all its tables, and renamed.
 */
class ImportTarget
{
public:
    /** @p path is one of the machine. */
    ImportTarget(ArchiveFile file, const QString &path);
    /** Takes back what was not finished. */
    ~ImportTarget();
    Q_DISABLE_COPY_MOVE(ImportTarget)

    /** How the database defines a table; no value when it can't take one's rows, which is added to
     *  @p errors. Throws DatabaseError. */
    std::optional<TableDef> storedTable(const ExchangedTable &table, QStringList &errors);

    /** The rows that are there. Throws DatabaseError. */
    TableRows storedRows(const ExchangedTable &table);

    /** The rows of @p table, which must live as long, take the place of @p seen. */
    void add(const CsvTable &table, TableRows seen) { m_changes.append({&table, std::move(seen)}); }

    // The three steps of writing, to be taken for all databases one after the other. What throws
    // leaves this database as it was.
    void backUp();
    void write();
    void finish();

    bool exists() const { return m_exists; }
    const QString &path() const { return m_path; }
    /** "Appalto.mdb: creato"; empty when there is nothing to be done to the file. */
    QString report() const;

private:
    struct Change
    {
        const CsvTable *table;
        TableRows seen;
    };

    Database &opened();
    void removeNew() const;
    void fill(Database &database) const;

    ArchiveFile m_file;
    QString m_path;
    QString m_newPath;
    bool m_exists;
    std::optional<Database> m_database;
    std::unique_ptr<Transaction> m_transaction;
    QList<Change> m_changes;
    QString m_copy;
};

} // namespace saldoro
