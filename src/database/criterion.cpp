#include "database/criterion.h"

#include "database/text_order.h"

#include <QList>

namespace saldoro {

using namespace Qt::StringLiterals;

namespace {

/** A text without letter case, in which an accented letter is one character. */
QString composedFold(const QString &text)
{
    return text.normalized(QString::NormalizationForm_C).toCaseFolded();
}

QString plain(uint character)
{
    return u"\\x{%1}"_s.arg(character, 0, 16);
}

/** The expression for "[list]"; none when a range runs backwards. */
std::optional<QString> listExpression(QList<uint> list)
{
    if (list.isEmpty())
        return QString(); // an empty list stands for no character at all
    const bool isNegated = list.size() > 1 && list.front() == u'!';
    if (isNegated)
        list.removeFirst();
    QString members;
    for (qsizetype place = 0; place < list.size(); ++place) {
        members += plain(list[place]);
        if (place + 2 >= list.size() || list[place + 1] != u'-')
            continue;
        if (list[place] > list[place + 2])
            return std::nullopt;
        members += u'-' + plain(list[place + 2]);
        place += 2;
    }
    return (isNegated ? u"[^"_s : u"["_s) + members + u']';
}

/** What stands between two "*" has one length, so the first place where it fits is as good as any
 *  later one: the groups never give back what they took, which keeps the work small. */
QString likeExpression(const QString &pattern)
{
    const QList<uint> characters = composedFold(pattern).toUcs4();
    QString expression = u"\\A"_s;
    QString part; // since the last "*"
    bool isBehindRun = false;
    for (qsizetype place = 0; place < characters.size(); ++place) {
        switch (characters[place]) {
        case u'*':
            expression += isBehindRun ? u"(?>.*?"_s + part + u')' : part;
            part.clear();
            isBehindRun = true;
            break;
        case u'?':
            part += u'.';
            break;
        case u'#':
            part += u"[0-9]"_s;
            break;
        case u'[': {
            const qsizetype end = characters.indexOf(u']', place);
            const std::optional<QString> list =
                end < 0 ? std::nullopt
                        : listExpression(characters.sliced(place + 1, end - place - 1));
            part += list.value_or(plain(u'['));
            if (list)
                place = end;
            break;
        }
        default:
            part += plain(characters[place]);
        }
    }
    return expression + (isBehindRun ? u".*"_s : QString()) + part + u"\\z"_s;
}

} // namespace

QString RaddoppiaApici(const QString &text)
{
    return QString(text).replace(u'\'', u"''"_s);
}

LikePattern::LikePattern(const QString &pattern)
    : m_expression(likeExpression(pattern), QRegularExpression::DotMatchesEverythingOption)
{
}

bool LikePattern::matches(const QString &text) const
{
    return m_expression.match(composedFold(text)).hasMatch();
}

bool Criterion::fits(const FieldDef &of) const
{
    if (std::holds_alternative<qint64>(wanted))
        return !IsText(of) && of.type != FieldType::Date;
    return IsText(of) || of.type == FieldType::Undeclared ||
           std::holds_alternative<LikePattern>(wanted);
}

std::optional<Criterion> ParseCriterion(const QString &text)
{
    static const QRegularExpression notation(
        uR"(\A\s*(?:\[([^\]]+)\]|(?![0-9])([\p{L}\p{N}_]++))\s*(=|(?i:like)(?![\p{L}\p{N}_])))"
        uR"(\s*(?:'([^']*+(?:''[^']*+)*+)'|([+-]?[0-9]+))\s*\z)"_s,
        QRegularExpression::UseUnicodePropertiesOption);
    const QRegularExpressionMatch match = notation.match(text);
    if (!match.hasMatch())
        return std::nullopt;
    const QString field = match.captured(1) + match.captured(2);
    const bool isLike = match.captured(3) != u'=';
    if (!match.hasCaptured(5)) {
        const QString literal = match.captured(4).replace(u"''"_s, u"'"_s);
        if (isLike)
            return Criterion{field, LikePattern(literal)};
        return Criterion{field, ComparableText(literal.toUtf8())};
    }
    bool isWhole = false; // of 64 bits
    const qint64 number = match.captured(5).toLongLong(&isWhole);
    return isWhole && !isLike ? std::optional(Criterion{field, number}) : std::nullopt;
}

} // namespace saldoro
