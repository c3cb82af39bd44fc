#pragma once

#include "common/errors.h"
#include "database/criterion.h"
#include "database/record_rows.h"
#include "database/record_set.h"
#include "database/statement.h"
#include "database/table_writer.h"

#include <QString>

#include <memory>
#include <optional>
#include <vector>

namespace saldoro {

class DatabaseFile;

/** Whether the records of a query can be told apart in their table, so that they can be written. */
enum class RecordAccess
{
    ReadOnly,
    Updatable
};

/**
 * The state of an open record set: its records, the position among them and the buffer of a change
 * under way. The prepared query waits for the first use, then all records are read at once, so that
 * nothing is locked while the set is walked.
 */
class RecordSetData
{
public:
    /** @param query prepared and not yet run; with Updatable its first column is the row's id.
     *  @param table the single table of the query, or empty. */
    RecordSetData(std::shared_ptr<DatabaseFile> file, Statement query, QString table,
                  RecordAccess access);

    /** The records, read from the file when this is the first use. */
    RecordRows &rows();

    bool isAtEnd();
    void moveFirst();
    void moveLast();
    void moveNext();

    void findFirst(const QString &criterion);
    void findNext(const QString &criterion);
    bool noMatch() const { return m_noMatch; }

    /** Throws FieldMissing. */
    int column(const QString &name) const;
    /** Throws NoCurrentRecord or FieldMissing when there is nothing to read there. */
    void requireField(int column);

    void addNew();
    void edit();
    void set(const QString &name, const NewValue &value);
    void update();
    void deleteRecord();

    /** A cell of the current record, which is there. */
    const Cell &currentCell(int column) const { return m_rows.cells().cell(m_row, column); }
    const CellTable &cells() const { return m_rows.cells(); }
    const ColumnInfo &columnInfo(int column) const { return m_rows.column(column); }

    /** The error of that kind with the place of the record set in it. */
    DatabaseError error(DatabaseFault fault, const QString &field = {},
                        const QString &extra = {}) const;

private:
    enum class Position
    {
        OnRecord,
        OnDeleted, ///< on a record that was deleted through this set
        AtEnd,
        Nowhere ///< after a find without a match
    };

    enum class Change
    {
        None,
        Adding,
        Editing
    };

    void read();
    void goTo(int row, Position otherwise);
    void requireRecord() const;
    void requireUpdatable() const;
    void begin(Change change);
    void find(const QString &criterion, int after);
    int matchAfter(int row, const Criterion &criterion);
    int equalAfter(int row, int column, const Criterion &criterion);
    TableWriter writer() const { return {m_file, m_table, &m_rows.columns()}; }

    std::shared_ptr<DatabaseFile> m_file;
    std::optional<Statement> m_query; ///< as long as the records have not been read
    QString m_table;
    RecordAccess m_access;
    RecordRows m_rows;
    bool m_columnsComplete = false;

    int m_row = RecordRows::NoRow;
    Position m_position = Position::AtEnd;
    bool m_noMatch = false;
    QString m_criterionText; ///< what was searched for last
    std::optional<Criterion> m_criterion;

    Change m_change = Change::None;
    RecordChanges m_buffer;
};

} // namespace saldoro
