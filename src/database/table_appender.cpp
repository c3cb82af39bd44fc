#include "database/table_appender.h"

#include "database/database_file.h"
#include "database/new_value.h"
#include "database/sql_text.h"
#include "database/statement.h"

#include <vector>

namespace saldoro {

using namespace Qt::StringLiterals;

namespace {

ColumnKind columnKind(FieldType type)
{
    switch (type) {
    case FieldType::Integer:
        return ColumnKind::Whole16;
    case FieldType::Long:
        return ColumnKind::Whole32;
    case FieldType::Currency:
        return ColumnKind::Currency;
    case FieldType::Double:
        return ColumnKind::Floating;
    case FieldType::Date:
        return ColumnKind::Date;
    case FieldType::Text:
    case FieldType::Memo:
        return ColumnKind::Text;
    case FieldType::Undeclared:
        break;
    }
    return ColumnKind::Undeclared;
}

ColumnInfo columnOf(const FieldDef &field)
{
    return {field.name, columnKind(field.type), field.size, field.allowZeroLength};
}

std::vector<FieldDef> fieldsOf(const Database &database, const QString &name,
                               const QStringList &fields)
{
    std::optional<TableDef> table = database.tableDef(name);
    if (!table)
        throw DatabaseError(DatabaseFault::TableMissing, database.path(), name);
    std::vector<FieldDef> result;
    for (const QString &field : fields)
        result.push_back(table->field(field));
    return result;
}

QString insertSql(const QString &table, const std::vector<FieldDef> &fields)
{
    QStringList names;
    QStringList marks;
    for (const FieldDef &field : fields) {
        names.append(QuotedName(field.name));
        marks.append(u"?"_s);
    }
    return u"INSERT INTO "_s + QuotedName(table) + u" ("_s + names.join(u", "_s) + u") VALUES ("_s +
           marks.join(u", "_s) + u')';
}

} // namespace

std::optional<DatabaseFault> RefusalOf(const FieldDef &field, const NewValue &value)
{
    const auto form = StoredForm(columnOf(field), value);
    const auto *fault = std::get_if<DatabaseFault>(&form);
    return fault == nullptr ? std::nullopt : std::optional(*fault);
}

struct TableAppender::Data
{
    QString path;
    QString table;
    std::vector<FieldDef> fields;
    Statement insert;
};

TableAppender::TableAppender(Database &database, const QString &table, const QStringList &fields)
{
    std::vector<FieldDef> written = fieldsOf(database, table, fields);
    Statement insert(database.file(), insertSql(table, written), table);
    m_data =
        std::make_unique<Data>(Data{database.path(), table, std::move(written), std::move(insert)});
}

TableAppender::~TableAppender() = default;

void TableAppender::append(const QList<NewValue> &values)
{
    Q_ASSERT(static_cast<size_t>(values.size()) == m_data->fields.size());
    int position = 0;
    for (const NewValue &value : values) {
        const FieldDef &field = m_data->fields[static_cast<size_t>(position)];
        const auto form = StoredForm(columnOf(field), value);
        if (const auto *fault = std::get_if<DatabaseFault>(&form))
            throw DatabaseError(*fault, m_data->path, m_data->table, field.name);
        m_data->insert.bind(++position, std::get<StoredValue>(form));
    }
    try {
        m_data->insert.step();
    } catch (...) {
        m_data->insert.reset();
        throw;
    }
    m_data->insert.reset();
}

} // namespace saldoro
