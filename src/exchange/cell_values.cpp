#include "exchange/cell_values.h"

#include "common/amount_text.h"
#include "common/characters.h"
#include "common/message_lines.h"
#include "common/number_text.h"

#include <QRegularExpression>
#include <QtNumeric>

#include <algorithm>

namespace saldoro {

using namespace Qt::StringLiterals;

namespace {

/** Takes a character off the front, with the blanks behind it. */
bool take(QStringView &text, QChar character)
{
    if (!text.startsWith(character))
        return false;
    text = text.sliced(1).trimmed();
    return true;
}

/** How a value of that type is written. Not for texts. */
QString expectedValue(FieldType type, Notation notation)
{
    const bool isItalian = notation == Notation::Italian;
    if (type == FieldType::Currency)
        return isItalian ? u"un importo come 1.234,56"_s
                         : u"un importo come 1234.56 (e non con tre decimali)"_s;
    if (type == FieldType::Date)
        return isItalian ? u"una data gg/mm/aaaa"_s : u"una data aaaa-mm-gg"_s;
    return u"un numero intero"_s;
}

} // namespace

std::optional<Currency> AmountOf(QStringView text, Notation notation)
{
    const bool isItalian = notation == Notation::Italian;
    text = text.trimmed();
    const bool hasEuro = take(text, u'€');
    const bool isNegative = take(text, u'-');
    if (!isNegative)
        take(text, u'+');
    if (!hasEuro && !take(text, u'€') && text.endsWith(u'€'))
        text = text.chopped(1).trimmed();
    const QChar group = isItalian ? u'.' : u',';
    const qsizetype mark = text.indexOf(isItalian ? u',' : u'.');
    const QStringView whole = text.first(mark < 0 ? text.size() : mark);
    const QStringView decimals = mark < 0 ? QStringView(u"0") : text.sliced(mark + 1);
    // Digits in groups that begin with 0, as in "0.250", are a fraction in the other notation.
    const bool isMisgrouped =
        whole.contains(group) && (whole.startsWith(u'0') || !IsInGroupsOfThree(whole, group));
    if (whole.isEmpty() || isMisgrouped || decimals.isEmpty() ||
        decimals.size() > Currency::Decimals || (!isItalian && decimals.size() == 3))
        return std::nullopt;
    qint64 scaled = 0;
    bool fits = true;
    const auto append = [&](QChar character) {
        const qint64 digit = character.unicode() - u'0';
        const qint64 signedDigit = isNegative ? -digit : digit;
        fits = fits && digit >= 0 && digit <= 9 && !qMulOverflow(scaled, qint64{10}, &scaled) &&
               !qAddOverflow(scaled, signedDigit, &scaled);
    };
    for (const QChar character : whole) {
        if (character != group)
            append(character);
    }
    std::ranges::for_each(decimals, append);
    std::ranges::for_each(QStringView(u"0000").first(Currency::Decimals - decimals.size()), append);
    return fits ? std::optional(Currency::fromScaled(scaled)) : std::nullopt;
}

std::optional<QDate> DayOf(QStringView text, Notation notation)
{
    static const QRegularExpression italian(u"\\A(\\d\\d?)/(\\d\\d?)/(\\d{4})\\z"_s);
    static const QRegularExpression international(
        u"\\A(\\d{4})-(\\d\\d)-(\\d\\d)(?:[ T]00:00(?::00(?:\\.0+)?)?)?\\z"_s);
    const bool isItalian = notation == Notation::Italian;
    const auto match = (isItalian ? italian : international).match(text.trimmed());
    const auto part = [&match](int place) { return match.capturedView(place).toInt(); };
    const QDate day(part(isItalian ? 3 : 1), part(2), part(isItalian ? 1 : 3));
    return day.isValid() ? std::optional(day) : std::nullopt;
}

std::optional<qint32> WholeOf(QStringView text)
{
    bool fits = false;
    const qint32 number = text.trimmed().toInt(&fits);
    return fits ? std::optional(number) : std::nullopt;
}

std::optional<NewValue> ValueOfCell(const QString &cell, FieldType type, Notation notation)
{
    if (cell.isNull())
        return NewValue();
    if (type == FieldType::Currency)
        return AmountOf(cell, notation);
    if (type == FieldType::Integer || type == FieldType::Long)
        return WholeOf(cell);
    if (type == FieldType::Date && !cell.isEmpty())
        return DayOf(cell, notation);
    return cell;
}

std::optional<NewValue> SureValueOfCell(const QString &cell, FieldType type,
                                        std::optional<Notation> notation, QString &problem)
{
    const Notation used = notation.value_or(Notation::Italian);
    auto value = ValueOfCell(cell, type, used);
    if (!value) {
        problem = u"«%1» non è %2, o è fuori misura."_s.arg(
            LeftCharacters(cell, MostCharactersQuoted), expectedValue(type, used));
        return std::nullopt;
    }
    const bool isAnother =
        used == Notation::Italian && cell.contains(u',') && // without one both read the same
        ValueOfCell(cell, type, Notation::International).value_or(*value) != *value;
    const bool isUnsure =
        !notation && type == FieldType::Currency && !cell.contains(u',') && cell.count(u'.') == 1;
    if (isAnother || isUnsure) {
        problem =
            u"«%1» può essere mille volte tanto: scriverlo con due o quattro decimali."_s.arg(cell);
        return std::nullopt;
    }
    return value;
}

QString AmountCell(Currency amount)
{
    QString text = FourDecimals(amount).replace(u'.', u',');
    text.chop(text.endsWith("00"_L1) ? 2 : 0);
    return text;
}

} // namespace saldoro
