#include "database/new_value.h"

#include "common/date_text.h"
#include "common/rounding.h"
#include "common/text_cut.h"
#include "database/stored_text.h"

namespace saldoro {

using namespace Qt::StringLiterals;

namespace {

using Form = std::variant<StoredValue, DatabaseFault>;

Form textForm(const ColumnInfo &column, const QString &text)
{
    if (text.isEmpty() && !column.allowsZeroLength)
        return DatabaseFault::ZeroLengthRefused;
    if (column.size > 0 && CharacterCount(text) > column.size)
        return DatabaseFault::FieldTooSmall;
    return StoredValue(text.toUtf8());
}

template <typename Whole>
Form wholeForm(double value)
{
    const auto rounded = RoundHalfEven<Whole>(value);
    return rounded ? Form(StoredValue(qint64{*rounded})) : Form(DatabaseFault::FieldTooSmall);
}

Form wholeForm(double value, ColumnKind kind)
{
    if (kind == ColumnKind::Whole16)
        return wholeForm<qint16>(value);
    if (kind == ColumnKind::Whole32)
        return wholeForm<qint32>(value);
    return wholeForm<qint64>(value);
}

Form currencyForm(Currency value)
{
    return StoredValue(value.scaled());
}

/** Turns one kind of new value into the stored form of its column. */
struct Converter
{
    const ColumnInfo &column;

    Form operator()(std::monostate /*null*/) const { return StoredValue(); }

    Form operator()(const QString &text) const
    {
        switch (column.kind) {
        case ColumnKind::Text:
        case ColumnKind::Undeclared:
            return textForm(column, text);
        case ColumnKind::Date: {
            if (text.isEmpty())
                return textForm(column, text);
            return (*this)(QDate::fromString(text, u"dd/MM/yyyy"_s));
        }
        default:
            return DatabaseFault::TypeMismatch;
        }
    }

    Form operator()(QDate day) const
    {
        if (!day.isValid() || (column.kind != ColumnKind::Date && column.kind != ColumnKind::Text))
            return DatabaseFault::TypeMismatch;
        if (column.kind == ColumnKind::Text)
            return textForm(column, FormatData(day));
        return StoredValue(day.toString(u"yyyy-MM-dd"_s).toUtf8());
    }

    Form operator()(qint32 number) const
    {
        switch (column.kind) {
        case ColumnKind::Currency:
            return currencyForm(Currency::fromWhole(number));
        case ColumnKind::Floating:
            return StoredValue(static_cast<double>(number));
        case ColumnKind::Undeclared:
            return StoredValue(static_cast<qint64>(number));
        default:
            return sharedForm(number, QString::number(number));
        }
    }

    Form operator()(Currency amount) const
    {
        if (column.kind == ColumnKind::Currency || column.kind == ColumnKind::Undeclared)
            return currencyForm(amount);
        return sharedForm(amount.toDouble(), TenThousandthsText(amount.scaled()));
    }

    Form operator()(double value) const
    {
        if (column.kind != ColumnKind::Currency)
            return sharedForm(value, RealText(value));
        try {
            return currencyForm(Currency::fromDouble(value));
        } catch (const OverflowError &) {
            return DatabaseFault::FieldTooSmall;
        }
    }

private:
    /** The cases that all numbers share; @p text is the plain decimal form. */
    Form sharedForm(double value, const QString &text) const
    {
        switch (column.kind) {
        case ColumnKind::Date:
            return DatabaseFault::TypeMismatch;
        case ColumnKind::Text:
            return textForm(column, text);
        case ColumnKind::Whole16:
        case ColumnKind::Whole32:
        case ColumnKind::Whole64:
            return wholeForm(value, column.kind);
        default:
            return StoredValue(value);
        }
    }
};

} // namespace

Form StoredForm(const ColumnInfo &column, const NewValue &value)
{
    return std::visit(Converter{column}, value);
}

} // namespace saldoro
