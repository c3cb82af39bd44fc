#include "database/like_pattern.h"

#include "database/text_collation.h"
#include "platform/legacy_text.h"

#include <algorithm>
#include <string>

namespace saldoro {

namespace {

/** Code points without letter case; composed, so that an accented letter is one character. */
std::u32string foldedCharacters(const QString &text)
{
    const bool plain =
        std::all_of(text.begin(), text.end(), [](QChar c) { return c.unicode() < 0x80; });
    const QString composed = plain ? text : text.normalized(QString::NormalizationForm_C);
    return composed.toCaseFolded().toStdU32String();
}

QByteArray utf8Of(char32_t character)
{
    return QString::fromUcs4(&character, 1).toUtf8();
}

/** Order of two folded characters, the same as in comparisons of whole texts. */
int compareCharacters(char32_t left, char32_t right)
{
    if (left < 0x80 && right < 0x80)
        return static_cast<int>(left) - static_cast<int>(right);
    return CompareText(utf8Of(left), utf8Of(right));
}

} // namespace

std::optional<LikePattern> LikePattern::compile(const QString &pattern)
{
    LikePattern result;
    const std::u32string characters = foldedCharacters(pattern);
    for (size_t place = 0; place < characters.size(); ++place) {
        switch (characters[place]) {
        case U'*':
            result.m_elements.push_back({Kind::AnyRun, 0, {}});
            break;
        case U'?':
            result.m_elements.push_back({Kind::AnyCharacter, 0, {}});
            break;
        case U'#':
            result.m_elements.push_back({Kind::Digit, 0, {}});
            break;
        case U'[': {
            const size_t end = characters.find(U']', place);
            if (end == std::u32string::npos ||
                !result.appendList({characters.data() + place + 1, end - place - 1}))
                return std::nullopt;
            place = end;
            break;
        }
        default:
            result.m_elements.push_back({Kind::Character, characters[place], {}});
        }
    }
    return result;
}

bool LikePattern::appendList(std::u32string_view list)
{
    if (list.empty())
        return true; // an empty list stands for no character at all
    Element element;
    element.kind = Kind::Listed;
    if (list.front() == U'!' && list.size() > 1) {
        element.kind = Kind::NotListed;
        list.remove_prefix(1);
    }
    for (size_t place = 0; place < list.size(); ++place) {
        const char32_t first = list[place];
        char32_t last = first;
        if (place + 2 < list.size() && list[place + 1] == U'-') {
            last = list[place + 2];
            place += 2;
        }
        if (compareCharacters(first, last) > 0)
            return false;
        element.ranges.emplace_back(first, last);
    }
    m_elements.push_back(std::move(element));
    return true;
}

bool LikePattern::elementMatches(const Element &element, char32_t character)
{
    switch (element.kind) {
    case Kind::Character:
        return element.character == character;
    case Kind::Digit:
        return character >= U'0' && character <= U'9';
    case Kind::Listed:
    case Kind::NotListed: {
        const bool listed = std::any_of(element.ranges.begin(), element.ranges.end(),
                                        [character](const Range &range) {
                                            return compareCharacters(range.first, character) <= 0 &&
                                                   compareCharacters(character, range.second) <= 0;
                                        });
        return listed == (element.kind == Kind::Listed);
    }
    case Kind::AnyCharacter:
    case Kind::AnyRun:
        break;
    }
    return true;
}

bool LikePattern::matches(QByteArrayView utf8) const
{
    // The last run met is the only one that ever has to be stretched, so the work stays within
    // text length times pattern length.
    const std::u32string text = foldedCharacters(TextOfUtf8(utf8));
    size_t place = 0;
    size_t element = 0;
    std::optional<size_t> afterRun;
    size_t runEnd = 0;
    while (place < text.size()) {
        const bool inPattern = element < m_elements.size();
        if (inPattern && m_elements[element].kind == Kind::AnyRun) {
            afterRun = ++element;
            runEnd = place;
        } else if (inPattern && elementMatches(m_elements[element], text[place])) {
            ++element;
            ++place;
        } else if (afterRun) {
            element = *afterRun;
            place = ++runEnd;
        } else {
            return false;
        }
    }
    return std::all_of(m_elements.begin() + static_cast<std::ptrdiff_t>(element), m_elements.end(),
                       [](const Element &rest) { return rest.kind == Kind::AnyRun; });
}

} // namespace saldoro
