#include "database/record_rows.h"

#include "database/text_order.h"

#include <QtNumeric>

#include <algorithm>

namespace saldoro {

using namespace Qt::StringLiterals;

namespace {

bool equalsNumber(const StoredValue &value, qint64 number)
{
    if (const auto *whole = std::get_if<qint64>(&value))
        return *whole == number;
    const auto *real = std::get_if<double>(&value);
    return real != nullptr && *real == static_cast<double>(number);
}

} // namespace

RecordRows::RecordRows(std::shared_ptr<Connection> file, Statement query, const QString &table,
                       const QString &rowIdName)
    : m_file(std::move(file))
    , m_query(std::move(query))
    , m_origin{m_file->path(), table}
    , m_target(QualifiedName(m_file->schema(), table))
    , m_rowIdName(rowIdName)
    , m_fields(m_query->fields(areUpdatable() ? 1 : 0))
{
}

bool RecordRows::read()
{
    if (!m_query)
        return false;
    const int first = areUpdatable() ? 1 : 0;
    m_records.clear();                           // of an attempt that failed
    constexpr qsizetype mostValues = 20'000'000; // far more than any table here, half a gigabyte
    while (m_query->step()) {
        if (static_cast<qsizetype>(m_records.size()) * m_fields.size() > mostValues)
            throw DatabaseError(DatabaseFault::Endless, m_origin.file, m_origin.table);
        StoredValue *values = append(areUpdatable() ? m_query->whole(0) : 0);
        for (int column = 0; column < m_fields.size(); ++column)
            values[column] = m_query->value(first + column, m_memory);
    }
    m_liveCount = static_cast<int>(m_records.size());
    m_query.reset();
    return true;
}

/** Adds a record of nulls. */
StoredValue *RecordRows::append(qint64 id)
{
    const auto count = static_cast<size_t>(m_fields.size());
    StoredValue *values = std::pmr::polymorphic_allocator<StoredValue>(&m_memory).allocate(count);
    std::uninitialized_value_construct_n(values, count);
    m_records.push_back({id, values});
    return values;
}

int RecordRows::nextLive(int row) const
{
    const int end = static_cast<int>(m_records.size());
    do
        ++row;
    while (row < end && !isLive(row));
    return row < end ? row : NoRow;
}

int RecordRows::lastLive() const
{
    int row = static_cast<int>(m_records.size()) - 1;
    while (row >= 0 && !isLive(row))
        --row;
    return row;
}

void RecordRows::insert(const RecordChanges &values)
{
    const int changed = write(InsertSql(m_target, namesOf(values)), values, {});
    const qint64 id = m_file->lastRowId();
    requireStored(changed == 1 && isInFile(id)); // a trigger may have taken it away again
    append(id);
    ++m_liveCount;
    keep(static_cast<int>(m_records.size()) - 1, values);
}

bool RecordRows::update(int row, const RecordChanges &values)
{
    const qint64 id = record(row).id;
    const int changed = write(UpdateSql(m_target, namesOf(values), m_rowIdName), values, id);
    if (changed == 0 && !isInFile(id))
        return false;
    requireStored(changed == 1);
    keep(row, values);
    return true;
}

void RecordRows::remove(int row)
{
    const qint64 id = record(row).id;
    requireStored(write(DeleteSql(m_target, m_rowIdName), {}, id) == 1 || !isInFile(id));
    m_records[static_cast<size_t>(row)].values = nullptr;
    --m_liveCount;
}

bool RecordRows::isInFile(qint64 id) const
{
    Statement look(m_file, u"SELECT 1 FROM "_s + m_target + u" WHERE "_s + m_rowIdName + u" = ?"_s,
                   m_origin.table);
    look.bind(1, id);
    return look.step();
}

void RecordRows::requireStored(bool isStored) const
{
    if (!isStored)
        throw DatabaseError(DatabaseFault::NotStored, m_origin.file, m_origin.table);
}

QStringList RecordRows::namesOf(const RecordChanges &values) const
{
    QStringList names;
    for (const auto &[column, value] : values)
        names.append(m_fields[column].name);
    return names;
}

/** Runs a statement whose parameters are the values, then perhaps a row's id; the number of records
 *  that it changed. */
int RecordRows::write(const QString &sql, const RecordChanges &values, std::optional<qint64> rowId)
{
    Statement change(m_file, sql, m_origin.table);
    int parameter = 0;
    for (const auto &[column, value] : values)
        change.bind(++parameter, value);
    if (rowId)
        change.bind(++parameter, *rowId);
    return change.run();
}

void RecordRows::keep(int row, const RecordChanges &values)
{
    for (const auto &[column, value] : values)
        record(row).values[column] = value;
    m_indexes.clear();
}

int RecordRows::nextMatch(int row, int column, const Criterion &criterion)
{
    const FieldType type = m_fields[column].type;
    if (const auto *text = std::get_if<QByteArray>(&criterion.wanted))
        return nextEqual(row, column, *text);
    if (const auto *pattern = std::get_if<LikePattern>(&criterion.wanted))
        return nextThat(row, column, [&](const StoredValue &value) {
            return pattern->matches(PlainText(value, type));
        });
    qint64 number = std::get<qint64>(criterion.wanted);
    if (type == FieldType::Currency && qMulOverflow(number, Currency::Scale, &number))
        return NoRow; // beyond any amount that can be stored
    return nextThat(row, column,
                    [number](const StoredValue &value) { return equalsNumber(value, number); });
}

/** The first record after @p row whose value in @p column is not null and is what is wanted. */
template <typename Meets>
int RecordRows::nextThat(int row, int column, const Meets &meets) const
{
    for (row = nextLive(row); row != NoRow; row = nextLive(row)) {
        const StoredValue &candidate = value(row, column);
        if (!std::holds_alternative<std::monostate>(candidate) && meets(candidate))
            return row;
    }
    return NoRow;
}

QByteArray RecordRows::comparableText(const StoredValue &value, int column) const
{
    const auto *text = std::get_if<QByteArrayView>(&value);
    if (text != nullptr && IsText(m_fields[column]))
        return ComparableText(*text);
    return ComparableText(PlainText(value, m_fields[column].type).toUtf8());
}

int RecordRows::nextEqual(int row, int column, const QByteArray &wanted)
{
    const QList<int> rows = indexOf(column).value(wanted);
    const auto match = std::find_if(std::upper_bound(rows.begin(), rows.end(), row), rows.end(),
                                    [this](int candidate) { return isLive(candidate); });
    return match == rows.end() ? NoRow : *match;
}

const RecordRows::Index &RecordRows::indexOf(int column)
{
    const auto known = m_indexes.constFind(column);
    if (known != m_indexes.constEnd())
        return *known;
    Index &index = m_indexes[column];
    for (int row = nextLive(NoRow); row != NoRow; row = nextLive(row)) {
        if (!std::holds_alternative<std::monostate>(value(row, column)))
            index[comparableText(value(row, column), column)].append(row);
    }
    return index;
}

} // namespace saldoro
