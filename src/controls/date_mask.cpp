#include "controls/date_mask.h"

#include "common/date_text.h"

#include <QRegularExpression>

#include <algorithm>

namespace saldoro {

using namespace Qt::StringLiterals;

namespace {

constexpr int placesEnd = static_cast<int>(EmptyDateText.size());
constexpr QChar missing = u'_';

constexpr bool isSlash(int position)
{
    return position == 2 || position == 5;
}

bool isDigit(QChar character)
{
    return character >= u'0' && character <= u'9';
}

bool isMaskText(const QString &text)
{
    static const QRegularExpression shape(uR"(\A[0-9_]{2}/[0-9_]{2}/[0-9_]{4}\z)"_s);
    return shape.match(text).hasMatch();
}

/** A whole date in the shape of the mask; the empty text when @p text is none. */
QString maskTextOfDate(const QString &text)
{
    static const QRegularExpression date(
        uR"(\A(?:([0-9]{1,2})/([0-9]{1,2})/([0-9]{4}|[0-9]{2})|([0-9]{2})([0-9]{2})([0-9]{4}))\z)"_s);
    const QRegularExpressionMatch match = date.match(text);
    if (!match.hasMatch())
        return {};
    const int first = match.hasCaptured(1) ? 1 : 4;
    return match.captured(first).rightJustified(2, u'0') + u'/' +
           match.captured(first + 1).rightJustified(2, u'0') + u'/' +
           match.captured(first + 2).leftJustified(4, missing);
}

} // namespace

DateMask::DateMask(const QString &text, int cursor)
    : m_text(EmptyDateText.toString())
{
    if (isMaskText(text)) {
        m_text = text;
        m_cursor = std::clamp(cursor, 0, placesEnd);
    }
}

void DateMask::type(QChar character)
{
    if (isDigit(character))
        typeDigit(character);
    else if (character == u'/')
        typeSlash();
}

void DateMask::typeDigit(QChar digit)
{
    const int place = isSlash(m_cursor) ? m_cursor + 1 : m_cursor;
    if (place == placesEnd)
        return;
    m_text[place] = digit;
    m_cursor = nextPlace(place);
}

void DateMask::typeSlash()
{
    // Behind a full day or month the cursor is past the slash already, so that a "/" typed there
    // finds no digit before it and changes nothing.
    const int first = m_cursor <= 2 ? 0 : 3;
    if (m_cursor == first || m_cursor > 5)
        return;
    const bool isWhole =
        isSlash(m_cursor) && m_text[first] != missing && m_text[first + 1] != missing;
    const QChar digit = m_text[first] != missing ? m_text[first] : m_text[first + 1];
    if (digit == missing)
        return;
    if (!isWhole) {
        m_text[first] = u'0';
        m_text[first + 1] = digit;
    }
    m_cursor = first + 3;
}

void DateMask::eraseBefore()
{
    if (m_cursor == 0)
        return;
    m_cursor = previousPlace(m_cursor);
    m_text[m_cursor] = missing;
}

void DateMask::eraseAfter()
{
    const auto filled = std::find_if(m_text.begin() + m_cursor, m_text.end(), isDigit);
    if (filled != m_text.end())
        *filled = missing;
}

void DateMask::erase(int first, int last)
{
    for (int position = std::max(first, 0); position < std::min(last, placesEnd); ++position) {
        if (!isSlash(position))
            m_text[position] = missing;
    }
    m_cursor = std::clamp(first, 0, placesEnd);
}

bool DateMask::canPaste(const QString &text)
{
    const QString pasted = text.trimmed();
    return !pasted.isEmpty() && std::all_of(pasted.begin(), pasted.end(), [](QChar character) {
        return isDigit(character) || character == u'/';
    });
}

void DateMask::paste(const QString &text)
{
    if (!canPaste(text))
        return;
    const QString pasted = text.trimmed();
    if (const QString date = maskTextOfDate(pasted); !date.isEmpty()) {
        m_text = date;
        m_cursor = firstEmptyPlace(date);
        return;
    }
    for (const QChar character : pasted)
        type(character);
}

int DateMask::nextPlace(int cursor)
{
    const int next = std::min(cursor + 1, placesEnd);
    return isSlash(next) ? next + 1 : next;
}

int DateMask::previousPlace(int cursor)
{
    const int previous = std::max(cursor - 1, 0);
    return isSlash(previous) ? previous - 1 : previous;
}

int DateMask::firstEmptyPlace(const QString &text)
{
    const qsizetype place = text.indexOf(missing);
    return static_cast<int>(place < 0 ? text.size() : place);
}

} // namespace saldoro
