#include "store/table_rows.h"

#include "common/errors.h"
#include "common/legacy_text.h"
#include "database/text_order.h"
#include "platform/progress.h"

#include <algorithm>
#include <utility>

namespace saldoro {

using namespace Qt::StringLiterals;

namespace {

/** The value of a field that is not null. */
NewValue valueOf(const FieldDef &field, const FieldValue &stored, Reading reading)
{
    const bool isExact = reading == Reading::Exact;
    const auto bytes = stored.storedBytes();
    try {
        if (!stored.isOfItsKind())
            return isExact ? NewValue(QDate()) : bytes ? TextOfUtf8(*bytes) : stored.text();
        if (field.type == FieldType::Currency)
            return stored.currency();
        if (field.type == FieldType::Integer || field.type == FieldType::Long)
            return stored.integer();
        if (field.type == FieldType::Date && !(bytes && bytes->isEmpty()))
            return isExact && bytes && bytes->size() != StoredDayLength ? QDate() : stored.date();
    } catch (const DatabaseError &) { // the field is of another type
        return isExact ? NewValue(QDate()) : stored.text();
    }
    if (bytes)
        return TextOfUtf8(*bytes);
    return isExact ? NewValue(QDate()) : stored.text();
}

} // namespace

TableRows StoredRows(const Database &database, const TableDef &table, Reading reading)
{
    RecordSet records = database.openRecordSet(u"SELECT * FROM "_s + table.name());
    QList<std::pair<int, const FieldDef *>> columns;
    for (const FieldDef &field : table.fields())
        columns.append({records.column(field.name), &field});
    Progress progress(u"Lettura di "_s + table.name());
    TableRows rows;
    for (; !records.eof(); records.moveNext()) {
        TableRow row;
        row.reserve(columns.size());
        for (const auto &[column, field] : columns) {
            const FieldValue stored = records.field(column);
            row.append(stored.isNull() ? NewValue() : valueOf(*field, stored, reading));
        }
        rows.append(std::move(row));
        progress.show(rows.size());
    }
    return rows;
}

QString TextOf(const NewValue &value)
{
    return ValueAs<QString>(value).value_or(QString());
}

NewValue TextOrNull(const QString &text)
{
    return text.isEmpty() ? NewValue() : NewValue(text);
}

qsizetype FirstRow(const TableRows &rows, const QString &text)
{
    const auto found = std::ranges::find_if(
        rows, [&](const TableRow &row) { return AreEqualTexts(TextOf(row.first()), text); });
    return found == rows.end() ? -1 : found - rows.begin();
}

} // namespace saldoro
