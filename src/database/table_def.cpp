#include "database/table_def.h"

#include "common/errors.h"

#include <utility>

namespace saldoro {

TableDef::TableDef(QString name)
    : m_name(std::move(name))
{
}

void TableDef::appendField(const QString &name, FieldType type, int size)
{
    m_fields.append({name, type, type == FieldType::Text ? size : 0, false});
}

FieldDef &TableDef::field(const QString &name)
{
    for (FieldDef &field : m_fields) {
        if (field.name.compare(name, Qt::CaseInsensitive) == 0)
            return field;
    }
    throw DatabaseError(DatabaseFault::FieldMissing, {}, m_name, name);
}

} // namespace saldoro
