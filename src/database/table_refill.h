#pragma once

#include "database/database.h"
#include "database/statement.h"

#include <QList>
#include <QString>
#include <QStringList>

#include <memory>
#include <optional>

namespace saldoro {

/**
 * Replaces all records of a table by others, within a transaction. Fields that the new records do
 * not name, also those that no definition here knows, keep the values of former records byte for
 * byte. Only one may live on a connection at a time.
 */
class TableRefill
{
public:
    /** Sets the records of the table aside. @p fields are those that the new records name. Throws
     *  FieldMissing, ReadOnly when a record could not be found again, and as deleteAll(). */
    TableRefill(const Database &database, const QString &table, const QStringList &fields);
    /** Drops what was set aside. */
    ~TableRefill();
    Q_DISABLE_COPY_MOVE(TableRefill)

    /** Appends a record with @p values in the order of the fields, and the rest from the record
     *  that was at the place @p former of the stored order, counted from 0; without one the file's
     *  defaults. Throws TypeMismatch, FieldTooSmall, ZeroLengthRefused, NullValue for a field that
     *  the file wants filled, NotStored, DiskFull. */
    void add(const QList<NewValue> &values, std::optional<qsizetype> former);

private:
    std::shared_ptr<Connection> m_file;
    QString m_table;
    QList<FieldDef> m_fields;
    std::optional<Statement> m_insert;
    std::optional<Statement> m_carry; ///< inserts with the fields that new records do not name
};

} // namespace saldoro
