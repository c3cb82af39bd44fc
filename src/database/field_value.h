#pragma once

#include "common/currency.h"
#include "common/errors.h"
#include "database/table_def.h"

#include <QByteArrayView>
#include <QDate>
#include <QString>

#include <memory_resource>
#include <optional>
#include <variant>

namespace saldoro {

/** What can be written into a field: null, text, a whole number, a currency value, a day. A text
 *  for a date field is read as exactly dd/MM/yyyy, as FormatData() writes it. */
using NewValue = std::variant<std::monostate, QString, qint32, Currency, QDate>;

/** A value as the file holds it: null, a whole number, a floating-point number, or a text in UTF-8
 *  whose bytes lie elsewhere. */
using StoredValue = std::variant<std::monostate, qint64, double, QByteArrayView>;

/** Characters of a stored day, yyyy-MM-dd. A time of day may stand behind them. */
inline constexpr qsizetype StoredDayLength = 10;

/** A copy of @p text in @p texts. */
QByteArrayView KeptText(QByteArrayView text, std::pmr::memory_resource &texts);

/** The form in which @p value is stored in @p field, with a text put into @p texts, or the fault
 *  that forbids it: TypeMismatch, FieldTooSmall. Amounts go into currency and floating-point
 *  fields, whole numbers into all number fields, everything but days into undeclared ones; a text
 *  is never read as a number. Whether the field accepts an empty text is not looked at: the file
 *  refuses it (sql_text). */
std::variant<StoredValue, DatabaseFault> StoredForm(const FieldDef &field, const NewValue &value,
                                                    std::pmr::memory_resource &texts);

/** Why @p value can't be stored in @p field, a refused empty text included; no value if it can. */
std::optional<DatabaseFault> RefusalOf(const FieldDef &field, const NewValue &value);

/** The text of a stored value, as FieldValue::text(), null as the empty text. */
QString PlainText(const StoredValue &value, FieldType type);

/** The file and the table of a record, for error texts. */
struct RecordOrigin
{
    QString file;
    QString table;
};

/**
 * What one field of the current record holds, with its place for error texts. Valid until the
 * record set moves, changes or is closed: to be read at once.
 *
 * The functions throw NullValue for a null, unless they say otherwise; TypeMismatch for a stored
 * value that is not of the type asked for; FieldTooSmall for a number beyond that type.
 */
class FieldValue
{
public:
    bool isNull() const { return std::holds_alternative<std::monostate>(*m_value); }

    /** The value as text: numbers in plain decimal form, dates as dd/MM/yyyy, what is no date in a
     *  date field as it stands. */
    QString text() const;
    /** As text(), a null giving the empty text. */
    QString textOrEmpty() const { return PlainText(*m_value, m_field->type); }

    /** Whether the value is null or exactly what its field declares: a count of ten-thousandths; a
     *  whole number within the bounds of the field; a day as yyyy-MM-dd, which a time may follow,
     *  or the empty text. True in fields of other kinds. Throws nothing. */
    bool isOfItsKind() const;

    /** The bytes of a stored text, also of a day; no value for a null, a number, and bytes that are
     *  not valid UTF-8. Throws nothing. */
    std::optional<QByteArrayView> storedBytes() const;

    /** The exact value of a currency field. Whole and floating-point numbers are converted (ties to
     *  even). A number in a column without a declared type, an expression of a stored query, counts
     *  ten-thousandths. */
    Currency currency() const;
    /** As currency(), a null giving no value. */
    std::optional<Currency> currencyOrNone() const;

    /** A whole number; an amount and a floating-point number are rounded, halves to the even one.
     */
    qint32 integer() const;

    /** The day of a date field, also with other marks than "-"; an invalid QDate for the empty text
     *  that some date fields hold. */
    QDate date() const;
    /** As date(), a null or anything that is no date giving an invalid QDate. */
    QDate dateOrNone() const;

private:
    friend class RecordSet;
    FieldValue(const StoredValue &value, const FieldDef &field, const RecordOrigin &origin)
        : m_value(&value)
        , m_field(&field)
        , m_origin(&origin)
    {
    }
    const StoredValue &known() const;
    DatabaseError error(DatabaseFault fault) const;

    const StoredValue *m_value;
    const FieldDef *m_field;
    const RecordOrigin *m_origin;
};

} // namespace saldoro
