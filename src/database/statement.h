#pragma once

#include "database/connection.h"
#include "database/field_value.h"

#include <QList>
#include <QString>

#include <memory>
#include <memory_resource>

struct sqlite3_stmt;

namespace saldoro {

/** One prepared statement. Failures are thrown as by ThrowEngineError(), with file and table. */
class Statement
{
public:
    /** Prepares @p sql, which must hold exactly one statement. @p table is for error texts. */
    Statement(std::shared_ptr<Connection> file, const QString &sql, const QString &table = {});

    /** Whether running it gives rows and changes nothing. */
    bool isQuery() const;
    /** The columns of the result from position @p first on, as their declarations tell. */
    QList<FieldDef> fields(int first) const;

    /** Sets the parameter at @p position, counted from 1. A text is not copied: it has to live
     *  until the statement has run. */
    void bind(int position, const StoredValue &value);

    /** Runs to the next row; false at the end. A change outside a transaction is on the disk then.
     */
    bool step();
    /** Runs to the end and returns how many records an INSERT, UPDATE or DELETE changed; the number
     *  means nothing for other statements. The statement can be run again, also after a failure. */
    int run();

    int columnCount() const;
    /** A value of the current row; a text is put into @p texts. */
    StoredValue value(int column, std::pmr::memory_resource &texts) const;
    /** A value of the current row, converted by the engine: a null gives 0 or the empty text. */
    qint64 whole(int column) const;
    QString text(int column) const;

private:
    std::shared_ptr<Connection> m_file;
    QString m_table;
    std::shared_ptr<sqlite3_stmt> m_statement;
};

} // namespace saldoro
