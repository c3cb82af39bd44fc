#include "exchange/cell_rows.h"

namespace saldoro {

using namespace Qt::StringLiterals;

namespace {

/** Reads one text; throws CellFault. */
class Reader
{
public:
    Reader(QStringView text, QChar separator)
        : m_text(text)
        , m_separator(separator)
    {
    }

    bool isAtEnd() const { return m_at == m_text.size(); }

    CellRow row()
    {
        CellRow row{m_line, {}};
        row.cells.reserve(m_width);
        do
            row.cells.append(isAt(u'"') ? quotedCell() : plainCell());
        while (take(m_separator));
        const bool hasReturn = take(u'\r');
        if (!take(u'\n') && !hasReturn && !isAtEnd())
            fail(u"dopo le virgolette chiuse la cella continua"_s);
        ++m_line;
        m_width = row.cells.size();
        return row;
    }

private:
    bool isAt(QChar character) const { return !isAtEnd() && m_text[m_at] == character; }
    bool isAtCellEnd() const
    {
        return isAtEnd() || isAt(m_separator) || isAt(u'\n') || isAt(u'\r');
    }
    bool isLenient() const { return m_separator == u'\t'; }
    bool isBetweenCells(QStringView part) const
    {
        return part.contains(m_separator) || (LineEnds(part) > 0 && part.trimmed().isEmpty());
    }
    [[noreturn]] void fail(const QString &problem) const
    {
        throw CellFault{m_line, {}, problem + u": il resto non è stato letto."_s};
    }

    bool take(QChar character)
    {
        const bool isThere = isAt(character);
        m_at += isThere ? 1 : 0;
        return isThere;
    }

    QString plainCell()
    {
        const qsizetype begin = m_at;
        for (; !isAtCellEnd(); ++m_at) {
            if (isAt(u'"') && !isLenient())
                fail(u"ci sono virgolette dentro una cella che non comincia con esse"_s);
            if (isAt(QChar::ByteOrderMark) && !isLenient())
                fail(u"c'è il segno con cui comincia un altro file (due file uniti)"_s);
        }
        return m_at == begin ? QString() : m_text.sliced(begin, m_at - begin).toString();
    }

    QString quotedCell()
    {
        const Reader before = *this;
        QString cell;
        bool isClosed = true;
        while (take(u'"')) {
            const qsizetype end = m_text.indexOf(u'"', m_at);
            if (end < 0 && !isLenient())
                fail(u"le virgolette aperte non vengono chiuse"_s);
            const QStringView part = end < 0 ? QStringView() : m_text.sliced(m_at, end - m_at);
            isClosed = end >= 0 && !(isLenient() && isBetweenCells(part));
            if (!isClosed)
                break;
            if (cell.isNull())
                cell = part.toString(); // most cells are one part
            else
                cell += part;
            m_line += LineEnds(part);
            m_at = end + 1;
            if (isAt(u'"')) // it seemed to end the cell, and is the first of two
                cell += u'"';
        }
        if (!isLenient() || (isClosed && isAtCellEnd()))
            return cell;
        *this = before;
        return plainCell();
    }

    QStringView m_text;
    QChar m_separator;
    qsizetype m_at = 0;
    int m_line = 1;
    qsizetype m_width = 0; ///< cells of the row before
};

} // namespace

int LineEnds(QStringView text)
{
    int ends = 0;
    char16_t before = 0;
    for (const QChar character : text) {
        const char16_t unit = character.unicode();
        ends += unit == u'\r' || (unit == u'\n' && before != u'\r') ? 1 : 0;
        before = unit;
    }
    return ends;
}

TextRows RowsOfText(QStringView text, QChar separator, qsizetype most)
{
    TextRows result;
    Reader reader(text, separator);
    try {
        while (!reader.isAtEnd() && result.rows.size() < most)
            result.rows.append(reader.row());
    } catch (const CellFault &fault) {
        result.fault = fault;
    }
    return result;
}

} // namespace saldoro
