#include "exchange/csv_values.h"

#include <QRegularExpression>
#include <QStringBuilder>

namespace saldoro {

using namespace Qt::StringLiterals;

namespace {

constexpr int MostDecimals = 4;

/** What an amount looks like: captures its sign, its whole part and its decimals. */
QRegularExpression amountPattern(const QString &whole, const QString &decimals)
{
    return QRegularExpression(
        u"\\A\\s*€?\\s*([-+]?)\\s*€?\\s*(%1)(?:%2)?\\s*€?\\s*\\z"_s.arg(whole, decimals),
        QRegularExpression::UseUnicodePropertiesOption);
}

} // namespace

std::optional<Currency> AmountOf(QStringView text, CsvDialect dialect)
{
    static const QRegularExpression italian =
        amountPattern(u"[0-9]+|[0-9]{1,3}(?:\\.[0-9]{3})+"_s, u",([0-9]{1,4})"_s);
    static const QRegularExpression international =
        amountPattern(u"[0-9]+"_s, u"\\.([0-9]{1,2}|[0-9]{4})"_s);
    const auto match = (dialect == CsvDialect::Italian ? italian : international).match(text);
    if (!match.hasMatch() || text.count(u'€') > 1)
        return std::nullopt;
    const QStringView decimals = match.capturedView(3);
    QString digits = match.capturedView(1) % match.capturedView(2) % decimals %
                     QString(MostDecimals - decimals.size(), u'0');
    bool fits = false;
    const qint64 scaled = digits.remove(u'.').toLongLong(&fits);
    return fits ? std::optional(Currency::fromScaled(scaled)) : std::nullopt;
}

std::optional<QDate> DayOf(QStringView text, CsvDialect dialect)
{
    static const QRegularExpression italian(u"\\A(\\d\\d?)/(\\d\\d?)/(\\d{4})\\z"_s);
    static const QRegularExpression international(
        u"\\A(\\d{4})-(\\d\\d)-(\\d\\d)(?:[ T]00:00(?::00(?:\\.0+)?)?)?\\z"_s);
    const bool isItalian = dialect == CsvDialect::Italian;
    const auto match = (isItalian ? italian : international).match(text.trimmed());
    const auto part = [&match](int place) { return match.capturedView(place).toInt(); };
    const QDate day(part(isItalian ? 3 : 1), part(2), part(isItalian ? 1 : 3));
    return day.isValid() && day.year() > 0 ? std::optional(day) : std::nullopt;
}

std::optional<qint32> WholeOf(QStringView text)
{
    bool fits = false;
    const qint32 number = text.trimmed().toInt(&fits);
    return fits ? std::optional(number) : std::nullopt;
}

QString AmountCell(Currency amount)
{
    QString text = QString::number(amount.scaled());
    const bool isNegative = text.startsWith(u'-');
    text = text.sliced(isNegative ? 1 : 0).rightJustified(1 + MostDecimals, u'0');
    text.insert(text.size() - MostDecimals, u',');
    if (text.endsWith("00"_L1))
        text.chop(2);
    return isNegative ? u'-' + text : text;
}

} // namespace saldoro
