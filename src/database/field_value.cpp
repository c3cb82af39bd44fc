#include "database/field_value.h"

#include "common/amount_text.h"
#include "common/characters.h"
#include "common/date_text.h"
#include "common/legacy_text.h"
#include "common/rounding.h"

#include <QLocale>
#include <QRegularExpression>

#include <algorithm>
#include <array>
#include <cstddef>

namespace saldoro {

using namespace Qt::StringLiterals;

namespace {

/** The plain decimal form of a count of ten-thousandths, without trailing zeros: "-0.5". */
QString tenThousandthsText(qint64 scaled)
{
    static const QRegularExpression trailing(u"\\.?0+$"_s);
    return FourDecimals(Currency::fromScaled(scaled)).remove(trailing);
}

/** The day in a stored text yyyy-MM-dd, a time of day after it being ignored. No value for
 *  anything else. */
std::optional<QDate> dayOf(const StoredValue &value)
{
    const auto *text = std::get_if<QByteArrayView>(&value);
    if (text == nullptr || text->size() < StoredDayLength)
        return std::nullopt;
    if (text->size() > StoredDayLength && (*text)[StoredDayLength] != ' ' &&
        (*text)[StoredDayLength] != 'T')
        return std::nullopt;
    const QDate day =
        QDate::fromString(QString::fromLatin1(text->first(StoredDayLength)), Qt::ISODate);
    return day.isValid() ? std::optional(day) : std::nullopt;
}

/** Turns one kind of new value into the stored form of its field. */
struct Converter
{
    using Form = std::variant<StoredValue, DatabaseFault>;

    const FieldDef &field;
    std::pmr::memory_resource &texts;

    Form operator()(std::monostate /*null*/) const { return StoredValue(); }

    Form operator()(const QString &text) const
    {
        if (field.type == FieldType::Date && !text.isEmpty())
            return (*this)(QDate::fromString(text, u"dd/MM/yyyy"_s));
        const bool isKeptAsText =
            IsText(field) || field.type == FieldType::Date || field.type == FieldType::Undeclared;
        if (!isKeptAsText)
            return DatabaseFault::TypeMismatch;
        if (field.size > 0 && text.size() > field.size && CharacterCount(text) > field.size)
            return DatabaseFault::FieldTooSmall;
        return StoredValue(KeptText(text.toUtf8(), texts));
    }

    Form operator()(QDate day) const
    {
        if (!day.isValid() || field.type != FieldType::Date)
            return DatabaseFault::TypeMismatch;
        return StoredValue(KeptText(IsoText(day).toUtf8(), texts));
    }

    Form operator()(qint32 number) const
    {
        if (IsText(field) || field.type == FieldType::Date)
            return DatabaseFault::TypeMismatch;
        if (field.type == FieldType::Currency)
            return StoredValue(Currency::fromWhole(number).scaled());
        if (field.type == FieldType::Integer && number != static_cast<qint16>(number))
            return DatabaseFault::FieldTooSmall;
        return StoredValue(qint64{number});
    }

    Form operator()(Currency amount) const
    {
        if (field.type == FieldType::Currency || field.type == FieldType::Undeclared)
            return StoredValue(amount.scaled());
        if (field.type == FieldType::Double)
            return StoredValue(amount.toDouble());
        return DatabaseFault::TypeMismatch;
    }
};

} // namespace

QByteArrayView KeptText(QByteArrayView text, std::pmr::memory_resource &texts)
{
    // One more: the engine stores a text at no address as null, and an empty one needs an address.
    auto *bytes = static_cast<char *>(texts.allocate(static_cast<size_t>(text.size()) + 1, 1));
    std::copy(text.begin(), text.end(), bytes);
    return {bytes, text.size()};
}

std::variant<StoredValue, DatabaseFault> StoredForm(const FieldDef &field, const NewValue &value,
                                                    std::pmr::memory_resource &texts)
{
    return std::visit(Converter{field, texts}, value);
}

std::optional<DatabaseFault> RefusalOf(const FieldDef &field, const NewValue &value)
{
    const auto *text = std::get_if<QString>(&value);
    if (text != nullptr && text->isEmpty() && RefusesEmptyText(field))
        return DatabaseFault::ZeroLengthRefused;
    if (text != nullptr && IsText(field) && (field.size == 0 || text->size() <= field.size))
        return std::nullopt;          // long tables are full of them
    std::array<std::byte, 1024> room; // enough for most texts
    std::pmr::monotonic_buffer_resource texts(room.data(), room.size());
    const auto form = StoredForm(field, value, texts);
    const auto *fault = std::get_if<DatabaseFault>(&form);
    return fault == nullptr ? std::nullopt : std::optional(*fault);
}

QString PlainText(const StoredValue &value, FieldType type)
{
    const bool isCurrency = type == FieldType::Currency;
    if (const auto *whole = std::get_if<qint64>(&value))
        return isCurrency ? tenThousandthsText(*whole) : QString::number(*whole);
    if (const auto *real = std::get_if<double>(&value)) // in the shortest form that gives it back
        return QString::number(isCurrency ? *real / Currency::Scale : *real, 'f',
                               QLocale::FloatingPointShortest);
    if (type == FieldType::Date) {
        if (const auto day = dayOf(value))
            return FormatData(*day);
    }
    const auto *text = std::get_if<QByteArrayView>(&value);
    return text == nullptr ? QString() : TextOfStoredBytes(*text);
}

DatabaseError FieldValue::error(DatabaseFault fault) const
{
    return {fault, m_origin->file, m_origin->table, m_field->name};
}

/** The value, which must not be null. */
const StoredValue &FieldValue::known() const
{
    if (isNull())
        throw error(DatabaseFault::NullValue);
    return *m_value;
}

QString FieldValue::text() const
{
    return PlainText(known(), m_field->type);
}

bool FieldValue::isOfItsKind() const
{
    static const QRegularExpression day(
        u"\\A(\\d{4}-\\d\\d-\\d\\d([ T]\\d\\d:\\d\\d(:\\d\\d(\\.\\d+)?)?)?)?\\z"_s);
    const auto *whole = std::get_if<qint64>(m_value);
    const auto *text = std::get_if<QByteArrayView>(m_value);
    if (isNull())
        return true;
    switch (m_field->type) {
    case FieldType::Currency:
        return whole != nullptr;
    case FieldType::Long:
        return whole != nullptr && *whole == static_cast<qint32>(*whole);
    case FieldType::Integer:
        return whole != nullptr && *whole == static_cast<qint16>(*whole);
    case FieldType::Date:
        return text != nullptr && (text->isEmpty() || dayOf(*m_value)) &&
               day.match(QString::fromLatin1(*text)).hasMatch();
    default:
        return true;
    }
}

std::optional<QByteArrayView> FieldValue::storedBytes() const
{
    const auto *text = std::get_if<QByteArrayView>(m_value);
    return text != nullptr && text->isValidUtf8() ? std::optional(*text) : std::nullopt;
}

Currency FieldValue::currency() const
{
    const StoredValue &value = known();
    const bool countsTenThousandths =
        m_field->type == FieldType::Currency || m_field->type == FieldType::Undeclared;
    try {
        if (const auto *whole = std::get_if<qint64>(&value))
            return countsTenThousandths ? Currency::fromScaled(*whole)
                                        : Currency::fromWhole(*whole);
        if (const auto *real = std::get_if<double>(&value)) {
            if (!countsTenThousandths)
                return Currency::fromDouble(*real);
            if (const auto scaled = RoundHalfEven(*real))
                return Currency::fromScaled(*scaled);
            throw error(DatabaseFault::FieldTooSmall);
        }
    } catch (const OverflowError &) {
        throw error(DatabaseFault::FieldTooSmall);
    }
    throw error(DatabaseFault::TypeMismatch);
}

std::optional<Currency> FieldValue::currencyOrNone() const
{
    return isNull() ? std::nullopt : std::optional(currency());
}

qint32 FieldValue::integer() const
{
    const StoredValue &value = known();
    if (std::holds_alternative<QByteArrayView>(value))
        throw error(DatabaseFault::TypeMismatch);
    std::optional<qint64> number;
    if (m_field->type == FieldType::Currency)
        number = RoundHalfEven(currency().toDouble());
    else if (const auto *whole = std::get_if<qint64>(&value))
        number = *whole;
    else
        number = RoundHalfEven(std::get<double>(value));
    if (!number || *number != static_cast<qint32>(*number))
        throw error(DatabaseFault::FieldTooSmall);
    return static_cast<qint32>(*number);
}

QDate FieldValue::date() const
{
    const StoredValue &value = known();
    if (const auto day = dayOf(value))
        return *day;
    const auto *text = std::get_if<QByteArrayView>(&value);
    if (text == nullptr || !text->isEmpty())
        throw error(DatabaseFault::TypeMismatch);
    return {};
}

QDate FieldValue::dateOrNone() const
{
    return dayOf(*m_value).value_or(QDate());
}

} // namespace saldoro
