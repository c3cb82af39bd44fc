#include "exchange/cell_rows.h"

#include <utility>

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
        CellRow row{m_line, {cell()}};
        while (isAt(m_separator)) {
            ++m_at;
            row.cells.append(cell());
        }
        endRow();
        return row;
    }

private:
    bool isAt(QChar character) const { return !isAtEnd() && m_text[m_at] == character; }
    bool isLenient() const { return m_separator == u'\t'; }
    bool isCellEnd(qsizetype at) const
    {
        return at == m_text.size() || m_text[at] == m_separator || m_text[at] == u'\n' ||
               m_text[at] == u'\r';
    }

    QString cell()
    {
        if (isAt(u'"')) {
            const qsizetype begin = m_at;
            const int line = m_line;
            const std::optional<QString> quoted = quotedCell();
            if (quoted && (!isLenient() || isCellEnd(m_at)))
                return *quoted;
            m_at = begin;
            m_line = line;
        }
        return plainCell();
    }

    QString plainCell()
    {
        const qsizetype begin = m_at;
        for (; !isCellEnd(m_at); ++m_at) {
            if (m_text[m_at] == u'"' && !isLenient())
                throw CellFault{m_line,
                                {},
                                u"ci sono virgolette dentro una cella che non comincia "
                                "con esse"_s};
        }
        return m_at == begin ? QString() : m_text.sliced(begin, m_at - begin).toString();
    }

    /** No value when the quotes are never closed, which only a lenient reading permits. */
    std::optional<QString> quotedCell()
    {
        QString cell = u""_s;
        for (bool goesOn = false; isAt(u'"'); goesOn = true) {
            if (goesOn) // the quote that seemed to end the cell was the first of two
                cell += u'"';
            const qsizetype begin = m_at + 1;
            const qsizetype end = m_text.indexOf(u'"', begin);
            if (end < 0 && isLenient())
                return std::nullopt;
            if (end < 0)
                throw CellFault{m_line, {}, u"le virgolette aperte non vengono chiuse"_s};
            const QStringView part = m_text.sliced(begin, end - begin);
            cell += part;
            m_line += static_cast<int>(part.count(u'\n'));
            m_at = end + 1;
        }
        return cell;
    }

    void endRow()
    {
        if (isAtEnd())
            return;
        if (isAt(u'\r'))
            ++m_at;
        if (!isAt(u'\n'))
            throw CellFault{m_line,
                            {},
                            m_text[m_at - 1] == u'\r'
                                ? u"una riga finisce con il solo carattere CR"_s
                                : u"dopo le virgolette chiuse la cella continua"_s};
        ++m_at;
        ++m_line;
    }

    QStringView m_text;
    QChar m_separator;
    qsizetype m_at = 0;
    int m_line = 1;
};

} // namespace

TextRows RowsOfText(QStringView text, QChar separator, qsizetype most)
{
    TextRows result;
    Reader reader(text, separator);
    try {
        while (!reader.isAtEnd() && result.rows.size() < most)
            result.rows.append(reader.row());
    } catch (CellFault &fault) {
        fault.problem += u": il resto non è stato letto."_s;
        result.fault = std::move(fault);
    }
    return result;
}

} // namespace saldoro
