#include "database/table_def.h"

#include "common/errors.h"

#include <QRegularExpression>

#include <utility>

namespace saldoro {

using namespace Qt::StringLiterals;

namespace {

/** The words of declarations. The first that occurs decides when a file is read, so a longer one
 *  stands before those that it contains; a table that is made gets the first of its type. */
const QList<std::pair<FieldType, QString>> &typeWords()
{
    static const QList<std::pair<FieldType, QString>> words{
        {FieldType::Memo, u"MEMO TEXT"_s},    {FieldType::Text, u"TEXT"_s},
        {FieldType::Text, u"CHAR"_s},         {FieldType::Memo, u"MEMO"_s},
        {FieldType::Currency, u"CURRENCY"_s}, {FieldType::Date, u"DATETIME"_s},
        {FieldType::Date, u"DATE"_s},         {FieldType::Integer, u"INTEGER16"_s},
        {FieldType::Integer, u"SMALLINT"_s},  {FieldType::Long, u"LONG"_s},
        {FieldType::Long, u"INT"_s},          {FieldType::Double, u"DOUBLE"_s}};
    return words;
}

} // namespace

qsizetype IndexOfField(const QList<FieldDef> &fields, const QString &name)
{
    for (qsizetype at = 0; at < fields.size(); ++at) {
        const QString &own = fields[at].name;
        if (own.size() == name.size() &&
            (own == name || own.compare(name, Qt::CaseInsensitive) == 0))
            return at;
    }
    return -1;
}

TableDef::TableDef(QString name)
    : m_name(std::move(name))
{
}

void TableDef::appendField(const QString &name, FieldType type, int size, bool allowZeroLength)
{
    m_fields.append({name, type, type == FieldType::Text ? size : 0, allowZeroLength});
}

const FieldDef &TableDef::field(const QString &name) const
{
    const qsizetype at = indexOf(name);
    if (at < 0)
        throw DatabaseError(DatabaseFault::FieldMissing, {}, m_name, name);
    return m_fields[at];
}

QString DeclaredType(const FieldDef &field)
{
    for (const auto &[type, word] : typeWords()) {
        if (type == field.type)
            return type == FieldType::Text ? u"%1(%2)"_s.arg(word).arg(field.size) : word;
    }
    return {};
}

FieldDef FieldOfDeclaration(const QString &name, const QString &declaredType)
{
    static const QRegularExpression bound(uR"(\(\s*(\d{1,9})\s*\))"_s);
    FieldDef field{name, declaredType.isEmpty() ? FieldType::Undeclared : FieldType::Double, 0,
                   true};
    for (const auto &[type, word] : typeWords()) {
        if (declaredType.contains(word, Qt::CaseInsensitive)) {
            field.type = type;
            break;
        }
    }
    if (field.type == FieldType::Text)
        field.size = bound.match(declaredType).captured(1).toInt();
    if (field.type == FieldType::Text && field.size == 0)
        field.type = FieldType::Memo;
    return field;
}

} // namespace saldoro
