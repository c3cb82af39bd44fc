#pragma once

#include <QByteArrayView>
#include <QString>

#include <optional>
#include <string_view>
#include <utility>
#include <vector>

namespace saldoro {

/**
 * A pattern of the Like operator as the desktop engine reads it: `*` any run of characters, `?`
 * one character, `#` one digit, `[list]` one of the listed characters or ranges, `[!list]` one that
 * is not listed. Every other character, `_` and `%` included, stands for itself. Letter case is
 * ignored; a range takes in the accented letters that sort within it.
 */
class LikePattern
{
public:
    /** Reads @p pattern; no value when a bracket is not closed or a range runs backwards. */
    static std::optional<LikePattern> compile(const QString &pattern);

    /** Whether the whole of @p utf8 meets the pattern. */
    bool matches(QByteArrayView utf8) const;

private:
    using Range = std::pair<char32_t, char32_t>;

    enum class Kind
    {
        Character,
        AnyCharacter,
        AnyRun,
        Digit,
        Listed,
        NotListed
    };

    struct Element
    {
        Kind kind = Kind::Character;
        char32_t character = 0;
        std::vector<Range> ranges;
    };

    static bool elementMatches(const Element &element, char32_t character);
    bool appendList(std::u32string_view list);

    std::vector<Element> m_elements;
};

} // namespace saldoro
