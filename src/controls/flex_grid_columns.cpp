#include "controls/flex_grid_columns.h"

#include "controls/text_table.h"

#include <QFont>

#include <algorithm>
#include <cmath>
#include <numeric>

namespace saldoro {

TextWidths::TextWidths(const QFont &font)
    : m_metrics(font)
{
    m_letters.fill(-1);
}

int TextWidths::widthOf(const QString &text)
{
    qreal width = 0;
    for (const QChar character : text) {
        if (character.unicode() >= commonLetters)
            return widthOfUncommon(text);
        qreal &letter = m_letters[character.unicode()];
        if (letter < 0)
            letter = m_metrics.horizontalAdvance(character);
        width += letter;
    }
    return static_cast<int>(std::ceil(width));
}

int TextWidths::widthOfUncommon(const QString &text)
{
    // A column of signs holds the same one in every row.
    if (text != m_uncommon) {
        m_uncommon = text;
        m_uncommonWidth = static_cast<int>(std::ceil(m_metrics.horizontalAdvance(text)));
    }
    return m_uncommonWidth;
}

void FlexGridColumns::measure(const TextTable &table, const QFont &body, const QFont &header)
{
    m_body.emplace(body);
    m_header.emplace(header);
    m_widest.fill(0, table.columns());
    for (int row = 0; row < table.rows(); ++row) {
        for (int column = 0; column < table.columns(); ++column)
            measureCell(table, row, column);
    }
}

bool FlexGridColumns::measureCell(const TextTable &table, int row, int column)
{
    if (row > 0 && column == m_rest)
        return false;
    TextWidths &font = row == 0 ? *m_header : *m_body;
    const int width = font.widthOf(table.text(row, column));
    if (width <= m_widest.at(column))
        return false;
    m_widest[column] = width;
    return true;
}

QList<int> FlexGridColumns::widths(const Room &room, const QList<int> &amounts) const
{
    QList<int> widths;
    for (int column = 0; column < m_widest.size(); ++column) {
        const int wanted = m_widest.at(column) + room.space;
        const bool isBounded = column != m_rest && !amounts.contains(column);
        const int granted = isBounded ? std::min(wanted, room.grid / 2) : wanted;
        widths.append(std::max(m_least.value(column), granted));
    }
    if (m_rest >= 0 && m_rest < widths.size()) {
        const int taken = std::accumulate(widths.begin(), widths.end(), 0) - widths.at(m_rest);
        widths[m_rest] = std::max(widths.at(m_rest), room.grid - taken - room.margin);
    }
    return widths;
}

} // namespace saldoro
