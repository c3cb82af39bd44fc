#pragma once

#include "database/connection.h"
#include "database/criterion.h"
#include "database/record_rows.h"
#include "database/record_set.h"

#include <memory>
#include <optional>

namespace saldoro {

/**
 * The records, the position among them and the buffer of a change under way. The prepared query
 * waits for the first use, then all records are read at once, so that nothing is locked while the
 * set is walked.
 */
struct RecordSet::Data
{
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

    std::shared_ptr<Connection> file;
    std::optional<Statement> query; ///< as long as the records have not been read
    RecordPlace place;
    bool isUpdatable;
    RecordRows rows;

    int row = RecordRows::NoRow;
    Position position = Position::AtEnd;
    bool noMatch = false;

    QString criterionText = {}; ///< what was searched for last
    std::optional<Criterion> criterion = {};
    int criterionColumn = 0;
    int soughtUpTo = RecordRows::NoRow; ///< up to here no record meets it

    Change change = Change::None;
    RecordChanges buffer = {};

    DatabaseError error(DatabaseFault fault, const QString &field = {},
                        const QString &extra = {}) const
    {
        return {fault, place.file, place.table, field, extra};
    }

    void read();
    int columnOf(const QString &name) const;
    void requireRecord() const;
    void goTo(int wanted, Position otherwise);
    void setCriterion(const QString &text);
    void findAfter(int start);
    void begin(Change wanted);
    QStringList changedFields() const;
    /** Runs a statement whose parameters are the values in the buffer, then perhaps the current
     * row's id; the number of records that it changed. */
    int write(const QString &sql, std::optional<qint64> rowId = {});
};

} // namespace saldoro
