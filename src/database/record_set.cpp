#include "database/record_set.h"

#include "database/record_rows.h"

#include <optional>
#include <utility>

namespace saldoro {

using namespace Qt::StringLiterals;

/** The records, the position among them, what is sought and the buffer of a change under way. */
struct RecordSet::Data
{
    /** Positions without a record: behind the last one, and after a find without a match. */
    static constexpr int AtEnd = RecordRows::NoRow;
    static constexpr int Nowhere = AtEnd - 1;

    enum class Change
    {
        None,
        Adding,
        Editing
    };

    std::unique_ptr<RecordRows> rows;

    int row = AtEnd; ///< perhaps one that was deleted through this set
    bool noMatch = false;

    QString criterionText = {}; ///< what was searched for last
    std::optional<Criterion> criterion = {};
    int criterionColumn = 0;

    Change change = Change::None;
    RecordChanges buffer = {};

    DatabaseError error(DatabaseFault fault, const QString &field = {},
                        const QString &extra = {}) const
    {
        return {fault, rows->origin().file, rows->origin().table, field, extra};
    }

    int columnOf(const QString &name) const
    {
        const qsizetype column = IndexOfField(rows->fields(), name);
        if (column < 0)
            throw error(DatabaseFault::FieldMissing, name);
        return static_cast<int>(column);
    }

    void requireRecord(const QString &field = {}) const
    {
        if (row < 0 || !rows->isLive(row))
            throw error(DatabaseFault::NoCurrentRecord, field);
    }

    void requireUpdatable() const
    {
        if (!rows->areUpdatable())
            throw error(DatabaseFault::ReadOnly);
    }

    void requireChange(const QString &field = {}) const
    {
        if (change == Change::None)
            throw error(DatabaseFault::Other, field, u"nessuna modifica in corso"_s);
    }

    void goTo(int wanted)
    {
        row = wanted;
        begin(Change::None);
    }

    void begin(Change wanted)
    {
        buffer.clear();
        change = wanted;
    }

    void setCriterion(const QString &text)
    {
        // A walk through all matches asks the same again and again.
        if (criterion && text == criterionText)
            return;
        criterion.reset();
        std::optional<Criterion> wanted = ParseCriterion(text);
        if (!wanted)
            throw error(DatabaseFault::SyntaxError, {}, text);
        criterionColumn = columnOf(wanted->field);
        const FieldDef &field = rows->fields()[criterionColumn];
        if (!wanted->fits(field))
            throw error(DatabaseFault::TypeMismatch, field.name, text);
        criterion = std::move(wanted);
        criterionText = text;
    }

    void findAfter(int start)
    {
        const int match = rows->nextMatch(start, criterionColumn, *criterion);
        noMatch = match == RecordRows::NoRow;
        goTo(noMatch ? Nowhere : match);
    }
};

RecordSet::RecordSet(std::unique_ptr<RecordRows> rows)
    : m_data(new Data{std::move(rows)})
{
}

RecordSet::RecordSet(RecordSet &&other) noexcept = default;
RecordSet &RecordSet::operator=(RecordSet &&other) noexcept = default;
RecordSet::~RecordSet() = default;

/** The state with its records, which are read from the file when this is the first use. */
RecordSet::Data &RecordSet::filled() const
{
    Data &data = *m_data;
    if (data.rows->read())
        data.goTo(data.rows->nextLive(RecordRows::NoRow));
    return data;
}

bool RecordSet::eof() const
{
    const Data &data = filled();
    return data.rows->liveCount() == 0 || data.row == Data::AtEnd;
}

bool RecordSet::isUpdatable() const
{
    return m_data->rows->areUpdatable();
}

int RecordSet::recordCount() const
{
    return filled().rows->liveCount();
}

void RecordSet::moveFirst()
{
    Data &data = filled();
    data.goTo(data.rows->nextLive(RecordRows::NoRow));
}

void RecordSet::moveLast()
{
    Data &data = filled();
    data.goTo(data.rows->lastLive());
}

void RecordSet::moveNext()
{
    Data &data = filled();
    if (data.row < 0)
        throw data.error(DatabaseFault::NoCurrentRecord);
    data.goTo(data.rows->nextLive(data.row));
}

void RecordSet::findFirst(const QString &criterion)
{
    Data &data = filled();
    data.setCriterion(criterion);
    data.findAfter(RecordRows::NoRow);
}

void RecordSet::findNext(const QString &criterion)
{
    Data &data = filled();
    const bool isEmpty = data.rows->liveCount() == 0;
    if (data.row == Data::Nowhere && !isEmpty)
        throw data.error(DatabaseFault::NoCurrentRecord);
    // Behind the last record nothing is found, not even records that were added since.
    const bool isBehindAll = isEmpty || data.row == Data::AtEnd;
    data.setCriterion(criterion);
    data.findAfter(isBehindAll ? data.rows->lastLive() : data.row);
}

bool RecordSet::noMatch() const
{
    return m_data->noMatch;
}

int RecordSet::column(const QString &name) const
{
    return m_data->columnOf(name);
}

FieldValue RecordSet::field(int column) const
{
    const Data &data = filled();
    if (column < 0 || column >= data.rows->fields().size())
        throw data.error(DatabaseFault::FieldMissing, QString::number(column));
    const FieldDef &field = data.rows->fields()[column];
    data.requireRecord(field.name);
    return {data.rows->value(data.row, column), field, data.rows->origin()};
}

void RecordSet::addNew()
{
    Data &data = filled();
    data.requireUpdatable();
    data.begin(Data::Change::Adding);
}

void RecordSet::edit()
{
    Data &data = filled();
    data.requireRecord();
    data.requireUpdatable();
    data.begin(Data::Change::Editing);
}

void RecordSet::set(const QString &name, const NewValue &value)
{
    Data &data = *m_data;
    const int column = data.columnOf(name);
    data.requireChange(name);
    const auto form = StoredForm(data.rows->fields()[column], value, data.rows->texts());
    if (const auto *fault = std::get_if<DatabaseFault>(&form))
        throw data.error(*fault, name);
    data.buffer[column] = std::get<StoredValue>(form);
}

void RecordSet::update()
{
    Data &data = *m_data;
    data.requireChange();
    if (data.change == Data::Change::Adding)
        data.rows->insert(data.buffer);
    else if (!data.buffer.empty() && !data.rows->update(data.row, data.buffer))
        throw data.error(DatabaseFault::RecordGone);
    data.begin(Data::Change::None);
}

void RecordSet::deleteRecord()
{
    Data &data = filled();
    data.requireRecord();
    data.requireUpdatable();
    data.rows->remove(data.row);
    data.change = Data::Change::None;
}

} // namespace saldoro
