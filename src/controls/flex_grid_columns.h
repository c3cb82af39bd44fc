#pragma once

#include <QFontMetricsF>
#include <QList>
#include <QMap>

#include <array>
#include <optional>

class QFont;

namespace saldoro {

class TextTable;

/** Widths of texts in one font, quick enough for every cell of a large table: the width of each
 *  common letter is asked for only once. */
class TextWidths
{
public:
    explicit TextWidths(const QFont &font);

    /** Pixels, rounded up; never less than the text drawn in one line takes. */
    int widthOf(const QString &text);

private:
    static constexpr std::size_t commonLetters = 0x300; ///< below the combining marks

    int widthOfUncommon(const QString &text);

    QFontMetricsF m_metrics;
    std::array<qreal, commonLetters> m_letters;
    QString m_uncommon; ///< the text with other letters that was measured last
    int m_uncommonWidth = 0;
};

/**
 * The widths of a grid's columns. Each has its least width and grows when a text would be cut; the
 * rest column takes what the others leave and grows for its header only. Columns of amounts grow
 * without bound, other texts to half the grid at most, so that one long text does not push the
 * amounts out of sight.
 */
class FlexGridColumns
{
public:
    /** What the widths depend on besides the texts, in pixels. */
    struct Room
    {
        int grid;   ///< width of the whole grid
        int margin; ///< of it, what the rest column leaves free
        int space;  ///< around each text
    };

    void setLeastWidth(int column, int pixels) { m_least[column] = pixels; }
    void setRestColumn(int column) { m_rest = column; }

    /** Measures all texts anew, in the fonts of the body and of the header. */
    void measure(const TextTable &table, const QFont &body, const QFont &header);
    /** Measures one text; true when its column may need more room than before. */
    bool measureCell(const TextTable &table, int row, int column);

    /** Pixels for each column of the table last measured; @p amounts are the columns of amounts. */
    QList<int> widths(const Room &room, const QList<int> &amounts) const;

private:
    QMap<int, int> m_least;
    int m_rest = -1;
    QList<int> m_widest; ///< pixels of each column's widest text, that of the header included
    std::optional<TextWidths> m_body;
    std::optional<TextWidths> m_header;
};

} // namespace saldoro
