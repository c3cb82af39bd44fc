#include "database/record_set_data.h"

#include <utility>

namespace saldoro {

void RecordSet::Data::read()
{
    const int first = isUpdatable ? 1 : 0;
    RecordRows incoming(rows.fields());
    while (query->step()) {
        incoming.read(*query, first, isUpdatable ? query->whole(0) : 0);
    }
    rows = std::move(incoming);
    query.reset();
    goTo(rows.nextLive(RecordRows::NoRow), Position::AtEnd);
}

void RecordSet::Data::goTo(int wanted, Position otherwise)
{
    row = wanted;
    position = wanted == RecordRows::NoRow ? otherwise : Position::OnRecord;
    change = Change::None;
    buffer.clear();
}

int RecordSet::Data::columnOf(const QString &name) const
{
    for (int column = 0; column < rows.fields().size(); ++column) {
        if (rows.fields()[column].name.compare(name, Qt::CaseInsensitive) == 0)
            return column;
    }
    throw error(DatabaseFault::FieldMissing, name);
}

void RecordSet::Data::requireRecord() const
{
    if (position != Position::OnRecord)
        throw error(DatabaseFault::NoCurrentRecord);
}

void RecordSet::Data::setCriterion(const QString &text)
{
    // A walk through all matches, or a deletion of them, asks the same again and again.
    if (criterion && text == criterionText)
        return;
    criterion.reset();
    std::optional<Criterion> wanted = ParseCriterion(text);
    if (!wanted)
        throw error(DatabaseFault::SyntaxError, {}, text);
    criterionColumn = columnOf(wanted->field);
    const FieldDef &field = rows.fields()[criterionColumn];
    const auto *literal = std::get_if<QString>(&wanted->wanted);
    if (literal != nullptr && !IsText(field) && field.type != FieldType::Undeclared)
        throw error(DatabaseFault::TypeMismatch, field.name, *literal);
    const auto *number = std::get_if<qint64>(&wanted->wanted);
    if (number != nullptr && (IsText(field) || field.type == FieldType::Date))
        throw error(DatabaseFault::TypeMismatch, field.name, QString::number(*number));
    criterion = std::move(wanted);
    criterionText = text;
    soughtUpTo = RecordRows::NoRow;
}

void RecordSet::Data::findAfter(int start)
{
    const int match = rows.nextMatch(start, criterionColumn, *criterion);
    goTo(match, Position::Nowhere);
    noMatch = match == RecordRows::NoRow;
}

void RecordSet::Data::begin(Change wanted)
{
    if (!isUpdatable)
        throw error(DatabaseFault::ReadOnly);
    buffer.clear();
    change = wanted;
}

QStringList RecordSet::Data::changedFields() const
{
    QStringList names;
    for (const auto &[column, value] : buffer)
        names.append(rows.fields()[column].name);
    return names;
}

int RecordSet::Data::write(const QString &sql, std::optional<qint64> rowId)
{
    Statement statement(file, sql, place.table);
    int parameter = 0;
    for (const auto &[column, value] : buffer)
        statement.bind(++parameter, value);
    if (rowId)
        statement.bind(++parameter, *rowId);
    return statement.run();
}

} // namespace saldoro
