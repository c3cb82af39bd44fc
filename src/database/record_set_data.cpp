#include "database/record_set_data.h"

#include "database/database_file.h"
#include "database/new_value.h"
#include "database/table_schema.h"

#include <QtNumeric>

#include <utility>

namespace saldoro {

using namespace Qt::StringLiterals;

namespace {

int leadingColumns(RecordAccess access)
{
    return access == RecordAccess::Updatable ? 1 : 0;
}

} // namespace

RecordSetData::RecordSetData(std::shared_ptr<DatabaseFile> file, Statement query, QString table,
                             RecordAccess access)
    : m_file(std::move(file))
    , m_query(std::move(query))
    , m_table(std::move(table))
    , m_access(access)
    , m_rows(m_query->columns(leadingColumns(access)))
{
}

RecordRows &RecordSetData::rows()
{
    if (m_query)
        read();
    return m_rows;
}

void RecordSetData::read()
{
    const int first = leadingColumns(m_access);
    RecordRows rows(m_rows.columns());
    while (m_query->step()) {
        // A table changed by another program since the query was prepared gives other columns.
        if (m_query->columnCount() - first != rows.incoming().columnCount())
            throw error(DatabaseFault::Other, {},
                        u"la struttura della tabella è cambiata durante la lettura"_s);
        m_query->appendRow(rows.incoming(), first);
        rows.noteRow(first > 0 ? m_query->whole(0) : 0);
    }
    m_rows = std::move(rows);
    m_query.reset();
    goTo(m_rows.nextLive(RecordRows::NoRow), Position::AtEnd);
}

DatabaseError RecordSetData::error(DatabaseFault fault, const QString &field,
                                   const QString &extra) const
{
    return {fault, m_file->path(), m_table, field, extra};
}

void RecordSetData::goTo(int row, Position otherwise)
{
    m_row = row;
    m_position = row == RecordRows::NoRow ? otherwise : Position::OnRecord;
    m_change = Change::None;
    m_buffer.clear();
}

bool RecordSetData::isAtEnd()
{
    return rows().liveCount() == 0 || m_position == Position::AtEnd;
}

void RecordSetData::moveFirst()
{
    goTo(rows().nextLive(RecordRows::NoRow), Position::AtEnd);
}

void RecordSetData::moveLast()
{
    goTo(rows().lastLive(), Position::AtEnd);
}

void RecordSetData::moveNext()
{
    const RecordRows &records = rows();
    if (m_position == Position::AtEnd || m_position == Position::Nowhere)
        throw error(DatabaseFault::NoCurrentRecord);
    goTo(records.nextLive(m_row), Position::AtEnd);
}

void RecordSetData::findFirst(const QString &criterion)
{
    rows();
    find(criterion, RecordRows::NoRow);
}

void RecordSetData::findNext(const QString &criterion)
{
    const bool isEmpty = rows().liveCount() == 0;
    if (m_position == Position::Nowhere && !isEmpty)
        throw error(DatabaseFault::NoCurrentRecord);
    // Behind the last record only what was added meanwhile could follow, and that is not looked at.
    const bool isBehindAll = isEmpty || m_position == Position::AtEnd;
    find(criterion, isBehindAll ? m_rows.lastLive() : m_row);
}

void RecordSetData::find(const QString &criterion, int after)
{
    // A walk through all matches asks the same again and again.
    if (!m_criterion || criterion != m_criterionText) {
        m_criterion = ParseCriterion(criterion);
        m_criterionText = criterion;
    }
    if (!m_criterion)
        throw error(DatabaseFault::SyntaxError, {}, criterion);
    const int row = matchAfter(after, *m_criterion);
    goTo(row, Position::Nowhere);
    m_noMatch = row == RecordRows::NoRow;
}

int RecordSetData::matchAfter(int row, const Criterion &criterion)
{
    const int place = column(criterion.field);
    if (criterion.comparison == Criterion::Operator::Equals)
        return equalAfter(row, place, criterion);
    const QString &text = std::get<QString>(criterion.literal);
    const std::optional<LikePattern> pattern = LikePattern::compile(text);
    if (!pattern)
        throw error(DatabaseFault::SyntaxError, criterion.field, text);
    return m_rows.findLike(place, *pattern, row);
}

int RecordSetData::equalAfter(int row, int column, const Criterion &criterion)
{
    const ColumnInfo &info = m_rows.column(column);
    const bool isUndeclared = info.kind == ColumnKind::Undeclared;
    if (const auto *text = std::get_if<QString>(&criterion.literal)) {
        if (info.kind != ColumnKind::Text && !isUndeclared)
            throw error(DatabaseFault::TypeMismatch, info.name, *text);
        return m_rows.findText(column, text->toUtf8(), row);
    }
    qint64 number = std::get<qint64>(criterion.literal);
    if (info.kind == ColumnKind::Text || info.kind == ColumnKind::Date)
        throw error(DatabaseFault::TypeMismatch, info.name, QString::number(number));
    if (info.kind == ColumnKind::Currency && qMulOverflow(number, Currency::Scale, &number))
        return RecordRows::NoRow; // beyond any amount that can be stored
    return m_rows.findNumber(column, number, row);
}

int RecordSetData::column(const QString &name) const
{
    const std::vector<ColumnInfo> &columns = m_rows.columns();
    for (size_t place = 0; place < columns.size(); ++place) {
        if (columns[place].name.compare(name, Qt::CaseInsensitive) == 0)
            return static_cast<int>(place);
    }
    throw error(DatabaseFault::FieldMissing, name);
}

void RecordSetData::requireRecord() const
{
    if (m_position != Position::OnRecord)
        throw error(DatabaseFault::NoCurrentRecord);
}

void RecordSetData::requireField(int column)
{
    rows();
    if (column < 0 || column >= static_cast<int>(m_rows.columns().size()))
        throw error(DatabaseFault::FieldMissing, QString::number(column));
    if (m_position != Position::OnRecord)
        throw error(DatabaseFault::NoCurrentRecord, m_rows.column(column).name);
}

void RecordSetData::requireUpdatable() const
{
    if (m_access == RecordAccess::ReadOnly)
        throw error(DatabaseFault::ReadOnly);
}

void RecordSetData::begin(Change change)
{
    requireUpdatable();
    if (!m_columnsComplete) {
        std::vector<ColumnInfo> columns = m_rows.columns();
        CompleteColumns(m_file, m_table, columns);
        m_rows.setColumns(std::move(columns));
        m_columnsComplete = true;
    }
    m_buffer.clear();
    m_change = change;
}

void RecordSetData::addNew()
{
    rows();
    begin(Change::Adding);
}

void RecordSetData::edit()
{
    rows();
    requireRecord();
    begin(Change::Editing);
}

void RecordSetData::set(const QString &name, const NewValue &value)
{
    const int place = column(name);
    if (m_change == Change::None)
        throw error(DatabaseFault::Other, name, u"nessuna modifica in corso"_s);
    const auto form = StoredForm(m_rows.column(place), value);
    if (const auto *fault = std::get_if<DatabaseFault>(&form))
        throw error(*fault, name);
    m_buffer[place] = std::get<StoredValue>(form);
}

void RecordSetData::update()
{
    if (m_change == Change::None)
        throw error(DatabaseFault::Other, {}, u"nessuna modifica in corso"_s);
    if (m_change == Change::Adding) {
        const WrittenRow row = writer().insert(m_buffer);
        m_rows.append(row.cells, row.rowId);
    } else if (!m_buffer.empty()) {
        const WrittenRow row = writer().update(m_rows.rowId(m_row), m_buffer);
        m_rows.replace(m_row, row.cells, row.rowId);
    }
    m_change = Change::None;
    m_buffer.clear();
}

void RecordSetData::deleteRecord()
{
    rows();
    requireRecord();
    requireUpdatable();
    writer().remove(m_rows.rowId(m_row));
    m_rows.remove(m_row);
    m_position = Position::OnDeleted;
    m_change = Change::None;
}

} // namespace saldoro
