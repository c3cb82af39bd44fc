#include "database/table_appender.h"

#include "database/connection.h"
#include "database/sql_text.h"

namespace saldoro {

std::optional<DatabaseFault> RefusalOf(const FieldDef &field, const NewValue &value)
{
    const auto *text = std::get_if<QString>(&value);
    if (text != nullptr && text->isEmpty() && !field.allowZeroLength &&
        (IsText(field) || field.type == FieldType::Date))
        return DatabaseFault::ZeroLengthRefused;
    std::pmr::monotonic_buffer_resource texts;
    const auto form = StoredForm(field, value, texts);
    const auto *fault = std::get_if<DatabaseFault>(&form);
    return fault == nullptr ? std::nullopt : std::optional(*fault);
}

struct TableAppender::Data
{
    RecordPlace place;
    QList<FieldDef> fields;
    Statement insert;
    std::pmr::monotonic_buffer_resource texts;
};

TableAppender::TableAppender(Database &database, const QString &table, const QStringList &fields)
{
    std::optional<TableDef> definition = database.tableDef(table);
    if (!definition)
        throw DatabaseError(DatabaseFault::TableMissing, database.path(), table);
    QList<FieldDef> written;
    for (const QString &field : fields)
        written.append(definition->field(field));
    m_data.reset(new Data{{database.path(), table},
                          std::move(written),
                          Statement(database.file(), InsertSql(table, fields), table),
                          {}});
}

TableAppender::~TableAppender() = default;

void TableAppender::append(const QList<NewValue> &values)
{
    Q_ASSERT(values.size() == m_data->fields.size());
    m_data->texts.release();
    for (int column = 0; column < values.size(); ++column) {
        const FieldDef &field = m_data->fields[column];
        const auto form = StoredForm(field, values[column], m_data->texts);
        if (const auto *fault = std::get_if<DatabaseFault>(&form))
            throw DatabaseError(*fault, m_data->place.file, m_data->place.table, field.name);
        m_data->insert.bind(column + 1, std::get<StoredValue>(form));
    }
    m_data->insert.run();
}

} // namespace saldoro
