#include "database/record_set.h"

#include "database/record_set_data.h"

#include <utility>

namespace saldoro {

RecordSet::RecordSet(std::unique_ptr<RecordSetData> data)
    : m_data(std::move(data))
{
}
RecordSet::RecordSet(RecordSet &&other) noexcept = default;
RecordSet &RecordSet::operator=(RecordSet &&other) noexcept = default;
RecordSet::~RecordSet() = default;

RecordSetData &RecordSet::opened() const
{
    if (!m_data)
        throw DatabaseError(DatabaseFault::NoCurrentRecord, {});
    return *m_data;
}

bool RecordSet::eof() const
{
    return opened().isAtEnd();
}

bool RecordSet::isEmpty() const
{
    return recordCount() == 0;
}

int RecordSet::recordCount() const
{
    return opened().rows().liveCount();
}

void RecordSet::moveFirst()
{
    opened().moveFirst();
}

void RecordSet::moveLast()
{
    opened().moveLast();
}

void RecordSet::moveNext()
{
    opened().moveNext();
}

void RecordSet::findFirst(const QString &criterion)
{
    opened().findFirst(criterion);
}

void RecordSet::findNext(const QString &criterion)
{
    opened().findNext(criterion);
}

bool RecordSet::noMatch() const
{
    return opened().noMatch();
}

int RecordSet::column(const QString &name) const
{
    return opened().column(name);
}

FieldValue RecordSet::field(const QString &name) const
{
    return field(column(name));
}

FieldValue RecordSet::field(int column) const
{
    RecordSetData &data = opened();
    data.requireField(column);
    return {&data, column};
}

void RecordSet::addNew()
{
    opened().addNew();
}

void RecordSet::edit()
{
    opened().edit();
}

void RecordSet::set(const QString &name, const NewValue &value)
{
    opened().set(name, value);
}

void RecordSet::update()
{
    opened().update();
}

void RecordSet::deleteRecord()
{
    opened().deleteRecord();
}

void RecordSet::close()
{
    m_data.reset();
}

} // namespace saldoro
