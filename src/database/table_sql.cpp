#include "database/table_sql.h"

#include "database/engine_error.h"
#include "database/sql_text.h"

#include <QStringList>

namespace saldoro {

using namespace Qt::StringLiterals;

namespace {

/** The words also choose how the engine keeps a value: whatever holds text must have TEXT in its
 *  declaration, or a text made of digits would turn into a number. Dates are safe without. */
QString declaredType(const FieldDef &field)
{
    switch (field.type) {
    case FieldType::Integer:
        return u"INTEGER16"_s;
    case FieldType::Long:
        return u"LONG"_s;
    case FieldType::Currency:
        return u"CURRENCY"_s;
    case FieldType::Double:
        return u"DOUBLE"_s;
    case FieldType::Date:
        return u"DATETIME"_s;
    case FieldType::Text:
        return u"TEXT(%1)"_s.arg(field.size);
    case FieldType::Memo:
        return u"MEMO TEXT"_s;
    case FieldType::Undeclared:
        break;
    }
    return {};
}

bool canHoldEmptyText(FieldType type)
{
    return type == FieldType::Text || type == FieldType::Memo || type == FieldType::Date;
}

QString fieldSql(const FieldDef &field)
{
    const QString name = QuotedName(field.name);
    QString declaration = name + u' ' + declaredType(field);
    if (field.allowZeroLength || !canHoldEmptyText(field.type))
        return declaration;
    return declaration + u" CONSTRAINT "_s + QuotedName(ZeroLengthConstraint + field.name) +
           u" CHECK ("_s + name + u" <> '')"_s;
}

} // namespace

QString CreateTableSql(const TableDef &table)
{
    QStringList fields;
    for (const FieldDef &field : table.fields())
        fields.append(fieldSql(field));
    return u"CREATE TABLE "_s + QuotedName(table.name()) + u" ("_s + fields.join(u", "_s) + u')';
}

} // namespace saldoro
