#pragma once

#include "database/criterion.h"
#include "database/field_value.h"
#include "database/sql_text.h"
#include "database/statement.h"

#include <QHash>
#include <QList>
#include <QStringList>

#include <map>
#include <memory>
#include <memory_resource>
#include <optional>
#include <vector>

namespace saldoro {

/** What is written of a record: values by the indexes of their fields. */
using RecordChanges = std::map<int, StoredValue>;

/**
 * The records of a record set: read from the file all at once, so that nothing is locked while they
 * are walked, and written one by one. They are numbered from 0 in their order; a removed one keeps
 * its number and is passed over.
 */
class RecordRows
{
public:
    static constexpr int NoRow = -1;

    /** @param query prepared and not yet run
     *  @param table the single table of the query, or empty
     *  @param rowIdName the name that the position of a record, the first column of the query, has
     *  in the table; empty when the query has no such column, and the records can't be written */
    RecordRows(std::shared_ptr<Connection> file, Statement query, const QString &table,
               const QString &rowIdName);

    /** Reads the records; false when that was done before. */
    bool read();

    const RecordOrigin &origin() const { return m_origin; }
    bool areUpdatable() const { return !m_rowIdName.isEmpty(); }
    const QList<FieldDef> &fields() const { return m_fields; }

    /** Holds the texts of the records, as long as these live. */
    std::pmr::memory_resource &texts() { return m_memory; }

    const StoredValue &value(int row, int column) const { return record(row).values[column]; }
    int liveCount() const { return m_liveCount; }
    /** Whether the record was not removed. */
    bool isLive(int row) const { return record(row).values != nullptr; }

    /** The first record after @p row (NoRow for the very first) that was not removed, or NoRow. */
    int nextLive(int row) const;
    /** The last record that was not removed, or NoRow. */
    int lastLive() const;

    /** Each writes one record in one statement. A new record comes last. update() is false when the
     *  file does not hold the record any more. Throws NotStored when a rule of the table kept the
     *  record from being written. When it throws, the record is as it was; only what a trigger did
     *  by itself stays. */
    void insert(const RecordChanges &values);
    bool update(int row, const RecordChanges &values);
    void remove(int row);

    /** The first record after @p row whose field meets @p criterion, or NoRow. Whole numbers are
     *  compared with numbers only, texts with the plain text of the value. */
    int nextMatch(int row, int column, const Criterion &criterion);

private:
    using Index = QHash<QByteArray, QList<int>>;

    struct Record
    {
        qint64 id;           ///< of the row in the table
        StoredValue *values; ///< one for each field, in m_memory; null for a removed record
    };

    const Record &record(int row) const { return m_records[static_cast<size_t>(row)]; }
    StoredValue *append(qint64 id);
    template <typename Meets>
    int nextThat(int row, int column, const Meets &meets) const;
    QByteArray comparableText(const StoredValue &value, int column) const;
    int nextEqual(int row, int column, const QByteArray &wanted);
    const Index &indexOf(int column);

    QStringList namesOf(const RecordChanges &values) const;
    int write(const QString &sql, const RecordChanges &values, std::optional<qint64> rowId);
    bool isInFile(qint64 id) const;
    void requireStored(bool isStored) const;
    void keep(int row, const RecordChanges &values);

    std::shared_ptr<Connection> m_file;
    std::optional<Statement> m_query; ///< as long as the records have not been read
    RecordOrigin m_origin;
    QString m_target; ///< the table as SQL names it
    QString m_rowIdName;
    QList<FieldDef> m_fields;
    std::pmr::monotonic_buffer_resource m_memory;
    std::vector<Record> m_records;
    int m_liveCount = 0;
    /** By column: the records of each text, made when first asked for and after a write. */
    QHash<int, Index> m_indexes;
};

} // namespace saldoro
