#pragma once

#include <QString>

#include <optional>
#include <variant>

namespace saldoro {

/** What a find asks for: one field compared with one literal. */
struct Criterion
{
    enum class Operator
    {
        Equals,
        Like
    };

    QString field;
    Operator comparison = Operator::Equals;
    /** A whole number or a text; always a text for Like. */
    std::variant<qint64, QString> literal;
};

/**
 * Reads "Field = 12", "Field = 'text'" or "Field Like 'pattern'". Blanks between the parts do not
 * matter, an apostrophe inside a text is doubled, a name of several words stands in brackets. No
 * value when @p text is anything else or the number does not fit 64 bits.
 */
std::optional<Criterion> ParseCriterion(const QString &text);

} // namespace saldoro
