#include "exchange/csv_reader.h"

namespace saldoro {

using namespace Qt::StringLiterals;

bool CsvReader::next(CsvRow &row)
{
    if (m_at == m_text.size())
        return false;
    row.line = m_line;
    row.cells = {cell()};
    while (isAt(m_separator)) {
        ++m_at;
        row.cells.append(cell());
    }
    endRow();
    return true;
}

QString CsvReader::cell()
{
    if (isAt(u'"'))
        return quotedCell();
    const qsizetype begin = m_at;
    while (m_at < m_text.size() && m_text[m_at] != m_separator && m_text[m_at] != u'\n' &&
           m_text[m_at] != u'\r') {
        if (m_text[m_at] == u'"')
            throw CsvFault{m_line,
                           u"ci sono virgolette dentro una cella che non comincia con esse"_s};
        ++m_at;
    }
    return m_at == begin ? QString() : m_text.sliced(begin, m_at - begin).toString();
}

QString CsvReader::quotedCell()
{
    QString cell = u""_s;
    for (bool goesOn = false; isAt(u'"'); goesOn = true) {
        if (goesOn) // the quote that seemed to end the cell was the first of two
            cell += u'"';
        const qsizetype begin = m_at + 1;
        const qsizetype end = m_text.indexOf(u'"', begin);
        if (end < 0)
            throw CsvFault{m_line, u"le virgolette aperte non vengono chiuse"_s};
        const QStringView part = m_text.sliced(begin, end - begin);
        cell += part;
        m_line += static_cast<int>(part.count(u'\n'));
        m_at = end + 1;
    }
    return cell;
}

void CsvReader::endRow()
{
    if (m_at == m_text.size())
        return;
    if (isAt(u'\r'))
        ++m_at;
    if (!isAt(u'\n'))
        throw CsvFault{m_line, m_text[m_at - 1] == u'\r'
                                   ? u"una riga finisce con il solo carattere CR"_s
                                   : u"dopo le virgolette chiuse la cella continua"_s};
    ++m_at;
    ++m_line;
}

} // namespace saldoro
