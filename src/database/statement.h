#pragma once

#include "database/cell_table.h"
#include "database/column_info.h"

#include <QByteArray>
#include <QString>

#include <memory>
#include <variant>
#include <vector>

struct sqlite3_stmt;

namespace saldoro {

class DatabaseFile;

/** A value as the file keeps it: null, a whole number, a floating one, a text in UTF-8. */
using StoredValue = std::variant<std::monostate, qint64, double, QByteArray>;

/** One prepared statement. Every failure is a DatabaseError with the file and the table. */
class Statement
{
public:
    /** Prepares @p sql, which must hold exactly one statement. @p table is for error texts. */
    Statement(std::shared_ptr<DatabaseFile> file, const QString &sql, const QString &table = {});
    Statement(Statement &&other) noexcept;
    Statement &operator=(Statement &&other) = delete;
    Statement(const Statement &) = delete;
    Statement &operator=(const Statement &) = delete;
    ~Statement();

    /** Whether running it gives rows and changes nothing. */
    bool isQuery() const;
    /** The columns of the result, from position @p first on, with their declared types. */
    std::vector<ColumnInfo> columns(int first) const;

    /** Sets the parameter at @p position, counted from 1. */
    void bind(int position, const StoredValue &value);

    /** Runs to the next row; false at the end, when a change has reached the disk. */
    bool step();
    /** Makes it ready to run once more; parameters keep their values until they are bound anew. */
    void reset();

    int columnCount() const;
    /** A value of the current row, converted as the engine does; 0 and the empty text for a null.
     */
    qint64 whole(int column) const;
    QString text(int column) const;
    /** Appends the current row, from column @p first on, to @p cells. */
    void appendRow(CellTable &cells, int first) const;

private:
    std::shared_ptr<DatabaseFile> m_file;
    QString m_table;
    sqlite3_stmt *m_statement = nullptr;
};

} // namespace saldoro
