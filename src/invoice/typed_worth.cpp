#include "invoice/typed_worth.h"

#include "common/amount_text.h"
#include "common/characters.h"
#include "common/errors.h"
#include "common/number_text.h"

#include <QRegularExpression>

namespace saldoro {

using namespace Qt::StringLiterals;

namespace {

/** A typed text as a notice quotes it: no more than an amount is long. */
QString quoted(const QString &typed)
{
    constexpr qsizetype most = 24;
    const QString start = LeftCharacters(typed, most);
    return u'«' + start + (start == typed ? u"»"_s : u"…»"_s);
}

/** Whether points stand between groups of three digits, as in an amount that is shown. */
bool isGrouped(const QString &typed)
{
    static const QRegularExpression pointed(uR"(\A[+-]?([0-9.]*\.[0-9]+)(?:,[0-9]*)?\z)"_s);
    return IsInGroupsOfThree(pointed.match(typed.trimmed()).captured(1), u'.');
}

/** The text in plain form, by the mark that seems to be meant as that of the decimals. */
QString meantPlain(QString typed)
{
    if (typed.lastIndexOf(u'.') <= typed.lastIndexOf(u',') || isGrouped(typed))
        return typed.count(u',') > 1 && !typed.contains(u'.') ? typed.remove(u',')
                                                              : PuntoDecimale(typed);
    const qsizetype decimals = typed.remove(u',').lastIndexOf(u'.');
    return typed.first(decimals).remove(u'.') + typed.sliced(decimals);
}

} // namespace

TypedNotation NotationOf(const AmountField &field)
{
    if (field.role == AmountRole::Rate)
        return TypedNotation::Rate;
    return StaysPlain(field.amount) ? TypedNotation::Comma : TypedNotation::Point;
}

QString TypedWorth(const QString &typed, TypedNotation notation)
{
    AmountTexts texts;
    constexpr Amount any = Amount::Importo;
    texts.setText(any, typed);
    if (notation == TypedNotation::Rate)
        texts.showRate(any);
    else if (notation == TypedNotation::Point)
        texts.showTyped(any);
    else
        texts.show(any, texts.amount(any));
    return texts.text(any);
}

QString WorthLine(const QString &typed, TypedNotation notation)
{
    const QString text = typed.isEmpty() ? u"Il campo vuoto"_s : quoted(typed);
    try {
        return u"%1 vale %2%3 (i decimali vanno dopo %4)"_s.arg(
            text, TypedWorth(typed, notation),
            notation == TypedNotation::Rate ? u" per cento"_s : u""_s,
            notation == TypedNotation::Comma ? u"la virgola"_s : u"il punto"_s);
    } catch (const OverflowError &) {
        return text + u" è più di quanto il programma sa trattare"_s;
    }
}

QString MisreadLine(const QString &typed, TypedNotation notation)
{
    static const QRegularExpression digit(u"[1-9]"_s);
    static const QRegularExpression anyDigit(u"[0-9]"_s);
    static const QRegularExpression minusBehind(u"[0-9]\\s*-\\s*€?\\s*\\z"_s);
    static const QRegularExpression behind(u"[^0-9]*\\z"_s);
    QString number = QString(typed).remove(behind); // a point in words is no mark
    const bool isNegative = typed.contains(minusBehind);
    if (isNegative)
        number.prepend(u'-');
    const bool isComma = notation == TypedNotation::Comma;
    const bool hasGroups = isGrouped(number) || number.count(u'.') > 1;
    const bool hasOtherMarks =
        isComma ? number.contains(u'.') && !isGrouped(number)
                : number.contains(u',') || (notation == TypedNotation::Point && hasGroups);
    const QString worth = TypedWorth(typed, notation);
    QString meant = worth;
    QString wayOut;
    QString plain = number;
    if (isComma)
        PuntoDecimale(plain);
    if (isNegative || hasOtherMarks) {
        plain = meantPlain(number);
        meant = TypedWorth(plain, isComma ? TypedNotation::Point : notation);
        wayOut = isComma ? meant : plain;
    }
    if (meant != worth)
        return u"%1 vale %2, non %3. Scrivere %4"_s.arg(quoted(typed), worth, meant, wayOut);
    const QString rest = BehindLeadingNumber(plain);
    if (typed.contains(digit) && (rest.contains(anyDigit) || !worth.contains(digit)))
        return u"%1 vale %2. Scrivere solo cifre e %3"_s.arg(
            quoted(typed), worth, isComma ? u"una virgola"_s : u"un punto"_s);
    return {};
}

} // namespace saldoro
