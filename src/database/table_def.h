#pragma once

#include <QList>
#include <QString>

namespace saldoro {

/** Field types, numbered as the desktop engine numbers them. */
enum class FieldType
{
    Undeclared = 0, ///< of a table of another program: a type that is not told here
    Integer = 3,    ///< whole number of 16 bits
    Long = 4,       ///< whole number of 32 bits
    Currency = 5,   ///< exact count of ten-thousandths in 64 bits
    Double = 7,     ///< floating point
    Date = 8,       ///< a day, or null
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
    /** Whether an empty text may be stored; null is always accepted. */
    bool allowZeroLength = false;
};

/** Definition of a table: its name and its fields in creation order. */
class TableDef
{
public:
    explicit TableDef(QString name);

    /** Appends a field; @p size counts only for text fields. */
    void appendField(const QString &name, FieldType type, int size = 0);

    /** The appended field of that name, letter case ignored. Throws FieldMissing. */
    FieldDef &field(const QString &name);

    const QString &name() const { return m_name; }
    const QList<FieldDef> &fields() const { return m_fields; }

private:
    QString m_name;
    QList<FieldDef> m_fields;
};

} // namespace saldoro
