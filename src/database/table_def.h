#pragma once

#include <QList>
#include <QString>

namespace saldoro {

/** Field types, numbered as the desktop engine numbers them. */
enum class FieldType
{
    Undeclared = 0, ///< an expression of a stored query; never of a table that is made here
    Integer = 3,    ///< whole number of 16 bits
    Long = 4,       ///< whole number of 32 bits
    Currency = 5,   ///< exact count of ten-thousandths in 64 bits
    Double = 7,     ///< floating point, and whatever else is declared
    Date = 8,       ///< texts yyyy-MM-dd, with or without a time of day after them
    Text = 10,      ///< up to `size` characters
    Memo = 12       ///< text without a bound
};

/** Definition of one field of a table. */
struct FieldDef
{
    QString name;
    FieldType type = FieldType::Text;
    /** Most characters of a text field; 0 for every other type. */
    int size = 0;
    /** Whether an empty text may be stored; null is always accepted. Where not, the file itself
     *  refuses it (CreateTableSql()), and RefusalOf() tells it beforehand. */
    bool allowZeroLength = false;
};

/** The index of the field of that name, letter case ignored; -1 when there is none. */
qsizetype IndexOfField(const QList<FieldDef> &fields, const QString &name);

/** Whether the field holds texts. */
inline bool IsText(const FieldDef &field)
{
    return field.type == FieldType::Text || field.type == FieldType::Memo;
}

/** Whether the file refuses an empty text for the field. */
inline bool RefusesEmptyText(const FieldDef &field)
{
    return !field.allowZeroLength && (IsText(field) || field.type == FieldType::Date);
}

/** Definition of a table: its name and its fields in creation order. */
class TableDef
{
public:
    explicit TableDef(QString name);

    /** Appends a field; @p size counts only for text fields, for the rest see FieldDef. */
    void appendField(const QString &name, FieldType type, int size = 0,
                     bool allowZeroLength = false);

    /** The field of that name, letter case ignored. Throws FieldMissing, which names no file. */
    const FieldDef &field(const QString &name) const;

    /** As IndexOfField(), in the order of creation. */
    qsizetype indexOf(const QString &name) const { return IndexOfField(m_fields, name); }

    const QString &name() const { return m_name; }
    const QList<FieldDef> &fields() const { return m_fields; }

private:
    QString m_name;
    QList<FieldDef> m_fields;
};

/** The type that a field declares in a file. The words also decide how the engine keeps a value: a
 *  declaration for texts must have TEXT in it, or a text of digits would turn into a number. Dates
 *  are safe without. Empty for a field that declares none. */
QString DeclaredType(const FieldDef &field);

/** The field of a column that is declared as "TEXT(60)", "INTEGER16", "CURRENCY"... or by such
 *  words in types of other programs. Zero length counts as allowed. */
FieldDef FieldOfDeclaration(const QString &name, const QString &declaredType);

} // namespace saldoro
