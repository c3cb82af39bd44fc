#include "platform/table_sql.h"

#include "platform/engine_error.h"
#include "platform/sql_text.h"

#include <QStringList>

namespace saldoro {

namespace {

/** The words also choose how the engine keeps a value: whatever holds text must have TEXT in its
 *  declaration, or a text made of digits would turn into a number. Dates are safe without. */
QString declaredType(const FieldDef &field)
{
    switch (field.type) {
    case FieldType::Integer:
        return QStringLiteral("INTEGER16");
    case FieldType::Long:
        return QStringLiteral("LONG");
    case FieldType::Currency:
        return QStringLiteral("CURRENCY");
    case FieldType::Double:
        return QStringLiteral("DOUBLE");
    case FieldType::Date:
        return QStringLiteral("DATETIME");
    case FieldType::Text:
        return QStringLiteral("TEXT(%1)").arg(field.size);
    case FieldType::Memo:
        break;
    }
    return QStringLiteral("MEMO TEXT");
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
    return declaration + QStringLiteral(" CONSTRAINT ") +
           QuotedName(ZeroLengthConstraint + field.name) + QStringLiteral(" CHECK (") + name +
           QStringLiteral(" <> '')");
}

} // namespace

QString CreateTableSql(const TableDef &table)
{
    QStringList fields;
    for (const FieldDef &field : table.fields())
        fields.append(fieldSql(field));
    return QStringLiteral("CREATE TABLE ") + QuotedName(table.name()) + QStringLiteral(" (") +
           fields.join(QStringLiteral(", ")) + u')';
}

} // namespace saldoro
