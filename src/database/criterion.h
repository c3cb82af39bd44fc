#pragma once

#include "database/table_def.h"

#include <QRegularExpression>
#include <QString>

#include <optional>
#include <variant>

namespace saldoro {

/** A text made safe between single quotes in a criterion or query: every apostrophe doubled. */
QString RaddoppiaApici(const QString &text);

/**
 * A pattern of the Like operator as the desktop engine reads it: `*` any run of characters, `?`
 * one character, `#` one digit, `[list]` one of the listed characters or ranges, `[!list]` one that
 * is not listed. `[]` stands for nothing at all, `[!]` for `!`. Every other character, `_` and `%`
 * included, stands for itself, and so does a `[` that is never closed or that opens a range which
 * runs backwards. Letter case is ignored; ranges go by the numbers of the characters in lower
 * case.
 */
class LikePattern
{
public:
    explicit LikePattern(const QString &pattern);

    /** Whether all of @p text meets the pattern. Takes no more steps than the length of the text
     *  times that of the pattern. */
    bool matches(const QString &text) const;

private:
    QRegularExpression m_expression;
};

/** What a find asks for: a field that equals a whole number or a text (in its ComparableText()
 *  form), or that is like a pattern. */
struct Criterion
{
    QString field;
    std::variant<qint64, QByteArray, LikePattern> wanted;

    /** Whether values of that field can be compared with what is wanted. */
    bool fits(const FieldDef &of) const;
};

/** Reads "Field = 12", "Field = 'text'" or "Field Like 'pattern'". Blanks between the parts do not
 *  matter, an apostrophe inside a text is doubled, a name of several words stands in brackets. No
 *  value when @p text is anything else or the number does not fit 64 bits. */
std::optional<Criterion> ParseCriterion(const QString &text);

} // namespace saldoro
