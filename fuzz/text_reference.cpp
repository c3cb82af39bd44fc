#include "text_reference.h"

#include <QHash>

#include <algorithm>
#include <optional>
#include <span>

namespace saldoro {

using namespace Qt::StringLiterals;

namespace {

using Characters = std::span<const PlainCharacter>;

const QHash<QChar, PlainCharacter> &accentedLetters()
{
    static const QHash<QChar, PlainCharacter> letters = {
        {u'à', {u'a', 0x300}}, {u'À', {u'a', 0x300}}, {u'á', {u'a', 0x301}}, {u'è', {u'e', 0x300}},
        {u'È', {u'e', 0x300}}, {u'é', {u'e', 0x301}}, {u'É', {u'e', 0x301}}, {u'ü', {u'u', 0x308}},
        {u'Ü', {u'u', 0x308}}, {u'\u212A', {u'k', 0}}};
    return letters;
}

bool is(const PlainCharacter &character, char16_t plain)
{
    return character == PlainCharacter(plain, 0);
}

/** Whether a list takes in @p character; no value when the list can't be read. */
std::optional<bool> listTakes(Characters list, const std::optional<PlainCharacter> &character)
{
    const bool negated = list.size() > 1 && is(list[0], u'!');
    if (negated)
        list = list.subspan(1);
    bool found = false;
    for (size_t place = 0; place < list.size(); ++place) {
        const PlainCharacter first = list[place];
        const bool isRange = place + 2 < list.size() && is(list[place + 1], u'-');
        const PlainCharacter last = isRange ? list[place + 2] : first;
        if (first > last)
            return std::nullopt;
        found = found || (character && first <= *character && *character <= last);
        place += isRange ? 2 : 0;
    }
    return found != negated;
}

/** The list that the bracket at the start of @p pattern opens. */
std::optional<Characters> listAt(Characters pattern)
{
    const auto end =
        std::find_if(pattern.begin(), pattern.end(), [](auto c) { return is(c, u']'); });
    if (end == pattern.end())
        return std::nullopt;
    return pattern.subspan(1, static_cast<size_t>(end - pattern.begin()) - 1);
}

bool isReadable(Characters pattern)
{
    while (!pattern.empty()) {
        size_t length = 1;
        if (is(pattern[0], u'[')) {
            const auto list = listAt(pattern);
            if (!list || !listTakes(*list, std::nullopt))
                return false;
            length = list->size() + 2;
        }
        pattern = pattern.subspan(length);
    }
    return true;
}

bool matches(Characters pattern, Characters text)
{
    if (pattern.empty())
        return text.empty();
    const PlainCharacter first = pattern[0];
    const Characters rest = pattern.subspan(1);
    if (is(first, u'*')) {
        for (size_t length = 0; length <= text.size(); ++length) {
            if (matches(rest, text.subspan(length)))
                return true;
        }
        return false;
    }
    if (is(first, u'[')) {
        const Characters list = *listAt(pattern);
        const Characters behind = pattern.subspan(list.size() + 2);
        if (list.empty())
            return matches(behind, text);
        return !text.empty() && *listTakes(list, text[0]) && matches(behind, text.subspan(1));
    }
    if (text.empty())
        return false;
    const bool isDigit = text[0] >= PlainCharacter(u'0', 0) && text[0] <= PlainCharacter(u'9', 0);
    const bool fits =
        is(first, u'?') || (is(first, u'#') && isDigit) || (!is(first, u'#') && first == text[0]);
    return fits && matches(rest, text.subspan(1));
}

} // namespace

const QStringList &HostilePieces()
{
    static const QStringList pieces = {u"a"_s,  u"A"_s,      u"b"_s, u"B"_s, u"e"_s, u"k"_s, u"z"_s,
                                       u"à"_s,  u"À"_s,      u"á"_s, u"è"_s, u"È"_s, u"é"_s, u"É"_s,
                                       u"ü"_s,  u"\u212A"_s, u"0"_s, u"7"_s, u"_"_s, u"%"_s, u"'"_s,
                                       u"\""_s, u"-"_s,      u"!"_s, u" "_s, u"."_s};
    return pieces;
}

std::vector<PlainCharacter> PlainCharacters(const QString &text)
{
    std::vector<PlainCharacter> characters;
    for (const QChar character : text)
        characters.push_back(
            accentedLetters().value(character, {character.toLower().unicode(), char16_t(0)}));
    return characters;
}

int CompareSlowly(const QString &left, const QString &right)
{
    const auto bare = [](const QString &text) {
        QString result;
        for (const auto &[base, accent] : PlainCharacters(text))
            result += QChar(base);
        return result;
    };
    const auto whole = [](const QString &text) {
        QString result;
        for (const auto &[base, accent] : PlainCharacters(text)) {
            result += QChar(base);
            if (accent != 0)
                result += QChar(accent);
        }
        return result;
    };
    const int order = bare(left).compare(bare(right));
    return order != 0 ? order : whole(left).compare(whole(right));
}

int MatchSlowly(const QString &pattern, const QString &text)
{
    const std::vector<PlainCharacter> elements = PlainCharacters(pattern);
    if (!isReadable(elements))
        return -1;
    return matches(elements, PlainCharacters(text)) ? 1 : 0;
}

} // namespace saldoro
