#pragma once

#include "common/errors.h"
#include "database/database.h"

#include <QList>
#include <QStringList>

#include <memory>
#include <optional>

namespace saldoro {

/** Why @p value can't be stored in @p field: TypeMismatch, FieldTooSmall, ZeroLengthRefused; no
 *  value when it can. The same rules as in RecordSet::set(). */
std::optional<DatabaseFault> RefusalOf(const FieldDef &field, const NewValue &value);

/**
 * Appends many records to one table with one statement that is prepared once. Meant to be used
 * within a Transaction; outside of one every record is put on the disk for itself.
 */
class TableAppender
{
public:
    /** @param fields the fields that get a value in each record; the others are null, or what the
     *  file itself puts there. Throws TableMissing, FieldMissing. */
    TableAppender(Database &database, const QString &table, const QStringList &fields);
    ~TableAppender();
    TableAppender(const TableAppender &) = delete;
    TableAppender &operator=(const TableAppender &) = delete;

    /** Writes a record with @p values in the order of the fields. Throws what RecordSet::set() and
     *  RecordSet::update() throw; then the record has not been written. */
    void append(const QList<NewValue> &values);

private:
    struct Data;
    std::unique_ptr<Data> m_data;
};

} // namespace saldoro
