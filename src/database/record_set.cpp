#include "database/record_set.h"

#include "database/record_set_data.h"
#include "database/sql_text.h"

#include <utility>

namespace saldoro {

using namespace Qt::StringLiterals;

RecordSet::RecordSet(std::shared_ptr<Connection> file, Statement query, const QString &table,
                     Access access)
{
    const bool isUpdatable = access == Access::Updatable;
    QList<FieldDef> fields = query.fields(isUpdatable ? 1 : 0);
    const QString path = file->path();
    m_data = std::make_unique<Data>(
        Data{std::move(file), std::move(query), {path, table}, isUpdatable, RecordRows(fields)});
}

RecordSet::RecordSet(RecordSet &&other) noexcept = default;
RecordSet &RecordSet::operator=(RecordSet &&other) noexcept = default;
RecordSet::~RecordSet() = default;

RecordSet::Data &RecordSet::opened() const
{
    if (!m_data)
        throw DatabaseError(DatabaseFault::NoCurrentRecord, {});
    return *m_data;
}

/** The state with its records, which are read from the file when this is the first use. */
RecordSet::Data &RecordSet::filled() const
{
    Data &data = opened();
    if (data.query)
        data.read();
    return data;
}

bool RecordSet::eof() const
{
    const Data &data = filled();
    return data.rows.liveCount() == 0 || data.position == Data::Position::AtEnd;
}

bool RecordSet::isEmpty() const
{
    return recordCount() == 0;
}

int RecordSet::recordCount() const
{
    return filled().rows.liveCount();
}

void RecordSet::moveFirst()
{
    Data &data = filled();
    data.goTo(data.rows.nextLive(RecordRows::NoRow), Data::Position::AtEnd);
}

void RecordSet::moveLast()
{
    Data &data = filled();
    data.goTo(data.rows.lastLive(), Data::Position::AtEnd);
}

void RecordSet::moveNext()
{
    Data &data = filled();
    if (data.position == Data::Position::AtEnd || data.position == Data::Position::Nowhere)
        throw data.error(DatabaseFault::NoCurrentRecord);
    data.goTo(data.rows.nextLive(data.row), Data::Position::AtEnd);
}

void RecordSet::findFirst(const QString &criterion)
{
    Data &data = filled();
    data.setCriterion(criterion);
    data.findAfter(data.soughtUpTo);
    data.soughtUpTo = (data.noMatch ? data.rows.count() : data.row) - 1;
}

void RecordSet::findNext(const QString &criterion)
{
    Data &data = filled();
    const bool isEmpty = data.rows.liveCount() == 0;
    if (data.position == Data::Position::Nowhere && !isEmpty)
        throw data.error(DatabaseFault::NoCurrentRecord);
    // Behind the last record only what was added meanwhile could follow, and that is not looked at.
    const bool isBehindAll = isEmpty || data.position == Data::Position::AtEnd;
    data.setCriterion(criterion);
    data.findAfter(isBehindAll ? data.rows.lastLive() : data.row);
}

bool RecordSet::noMatch() const
{
    return opened().noMatch;
}

int RecordSet::column(const QString &name) const
{
    return opened().columnOf(name);
}

FieldValue RecordSet::field(const QString &name) const
{
    return field(column(name));
}

FieldValue RecordSet::field(int column) const
{
    const Data &data = filled();
    if (column < 0 || column >= data.rows.fields().size())
        throw data.error(DatabaseFault::FieldMissing, QString::number(column));
    const FieldDef &field = data.rows.fields()[column];
    if (data.position != Data::Position::OnRecord)
        throw data.error(DatabaseFault::NoCurrentRecord, field.name);
    return {data.rows.value(data.row, column), field, data.place};
}

void RecordSet::addNew()
{
    filled().begin(Data::Change::Adding);
}

void RecordSet::edit()
{
    Data &data = filled();
    data.requireRecord();
    data.begin(Data::Change::Editing);
}

void RecordSet::set(const QString &name, const NewValue &value)
{
    Data &data = opened();
    const int column = data.columnOf(name);
    if (data.change == Data::Change::None)
        throw data.error(DatabaseFault::Other, name, u"nessuna modifica in corso"_s);
    const auto form = StoredForm(data.rows.fields()[column], value, data.rows.texts());
    if (const auto *fault = std::get_if<DatabaseFault>(&form))
        throw data.error(*fault, name);
    data.buffer[column] = std::get<StoredValue>(form);
}

void RecordSet::update()
{
    Data &data = opened();
    if (data.change == Data::Change::None)
        throw data.error(DatabaseFault::Other, {}, u"nessuna modifica in corso"_s);
    if (data.change == Data::Change::Adding) {
        data.write(InsertSql(data.place.table, data.changedFields()));
        data.rows.append(data.buffer, data.file->lastRowId());
    } else if (!data.buffer.empty()) {
        const QString sql = UpdateSql(data.place.table, data.changedFields());
        if (data.write(sql, data.rows.rowId(data.row)) == 0)
            throw data.error(DatabaseFault::RecordGone);
        data.rows.replace(data.row, data.buffer);
    }
    data.soughtUpTo = RecordRows::NoRow;
    data.change = Data::Change::None;
    data.buffer.clear();
}

void RecordSet::deleteRecord()
{
    Data &data = filled();
    data.requireRecord();
    if (!data.isUpdatable)
        throw data.error(DatabaseFault::ReadOnly);
    data.buffer.clear();
    data.write(DeleteSql(data.place.table), data.rows.rowId(data.row));
    data.rows.remove(data.row);
    data.position = Data::Position::OnDeleted;
    data.change = Data::Change::None;
}

void RecordSet::close()
{
    m_data.reset();
}

} // namespace saldoro
