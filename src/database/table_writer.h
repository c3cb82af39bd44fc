#pragma once

#include "database/cell_table.h"
#include "database/column_info.h"
#include "database/statement.h"

#include <QString>

#include <map>
#include <memory>
#include <vector>

namespace saldoro {

class DatabaseFile;

/** What is written of a record: column position and value. */
using RecordChanges = std::map<int, StoredValue>;

/** A record as the file holds it after it was written. */
struct WrittenRow
{
    qint64 rowId = 0;
    CellTable cells;
};

/**
 * Writes single records of one table. Each call is one statement, which either is on the disk when
 * the call returns or has changed nothing.
 */
class TableWriter
{
public:
    /** @param columns all columns of the table in their order. */
    TableWriter(std::shared_ptr<DatabaseFile> file, QString table,
                const std::vector<ColumnInfo> *columns);

    /** Adds a record; a field without a value gets the file's own default, null where it has none.
     */
    WrittenRow insert(const RecordChanges &values) const;
    /** Changes a record; throws RecordGone when it is no longer there. */
    WrittenRow update(qint64 rowId, const RecordChanges &changes) const;
    /** Deletes a record; one that is already gone is what was asked for. */
    void remove(qint64 rowId) const;

private:
    QString columnName(int column) const;
    QString returning() const;

    std::shared_ptr<DatabaseFile> m_file;
    QString m_table;
    const std::vector<ColumnInfo> *m_columns;
};

} // namespace saldoro
