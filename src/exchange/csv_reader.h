#pragma once

#include <QString>
#include <QStringList>

namespace saldoro {

/** One row and the line that it begins on, counted from 1. */
struct CsvRow
{
    int line = 0;
    QStringList cells; ///< an empty one without quotes is a null text, one in quotes an empty one
};

/** Why a file can't be read on. */
struct CsvFault
{
    int line = 0;
    QString problem; ///< Italian, without a full stop
};

/**
 * Reads comma-separated text strictly: a cell that holds the separator, a quote or the end of a
 * line stands in quotes, quotes within are doubled, lines end with LF or CR LF. Blanks count as any
 * other character. Nothing is repaired.
 */
class CsvReader
{
public:
    /** @p text must outlive the reader. */
    CsvReader(QStringView text, QChar separator)
        : m_text(text)
        , m_separator(separator)
    {
    }

    /** Reads the next row into @p row; false at the end of the text. Throws CsvFault. */
    bool next(CsvRow &row);

private:
    QString cell();
    QString quotedCell();
    void endRow();
    bool isAt(QChar character) const { return m_at < m_text.size() && m_text[m_at] == character; }

    QStringView m_text;
    QChar m_separator;
    qsizetype m_at = 0;
    int m_line = 1;
};

} // namespace saldoro
