#include "controls/text_table.h"

#include "common/errors.h"

#include <algorithm>

namespace saldoro {

using namespace Qt::StringLiterals;

namespace {

BoundsError outside(const QString &problem, const QString &label, int index)
{
    BoundsError error(problem);
    error.addDetail(label, QString::number(index));
    return error;
}

} // namespace

TextTable::TextTable(int columns)
    : m_cells(1)
{
    setColumns(columns);
}

TextTable::TextTable(const TextTable &other)
    : m_cells(other.m_cells)
    , m_columns(other.m_columns)
    , m_row(other.m_row)
    , m_column(other.m_column)
{
}

TextTable &TextTable::operator=(const TextTable &other)
{
    if (this == &other)
        return *this;
    const BulkChange replacing(*this);
    m_cells = other.m_cells;
    m_columns = other.m_columns;
    m_row = other.m_row;
    m_column = other.m_column;
    return *this;
}

void TextTable::setRows(int rows)
{
    if (rows < 1)
        throw outside(u"Numero di righe della griglia non ammesso."_s, u"Righe"_s, rows);
    if (rows == this->rows())
        return;
    const QList<QString> emptyRow(m_columns);
    while (this->rows() < rows)
        m_cells.append(emptyRow);
    m_cells.resize(rows);
    m_row = std::min(m_row, rows - 1);
    if (listener())
        listener()->rowsChanged();
}

void TextTable::setColumns(int columns)
{
    if (columns < 0)
        throw outside(u"Numero di colonne della griglia non ammesso."_s, u"Colonne"_s, columns);
    if (columns == m_columns)
        return;
    for (QList<QString> &row : m_cells)
        row.resize(columns);
    m_columns = columns;
    m_column = std::clamp(m_column, 0, std::max(0, columns - 1));
    if (listener())
        listener()->tableReset();
}

void TextTable::setHeader(const QStringList &headings)
{
    const BulkChange change(*this);
    setColumns(static_cast<int>(headings.size()));
    setRows(1);
    m_cells.first() = headings;
}

QString TextTable::text(int row, int column) const
{
    checkRow(row);
    checkColumn(column);
    return m_cells.at(row).at(column);
}

void TextTable::setText(int row, int column, const QString &text)
{
    checkRow(row);
    checkColumn(column);
    m_cells[row][column] = text;
    if (listener())
        listener()->cellChanged(row, column);
}

void TextTable::setRow(int row)
{
    checkRow(row);
    if (row == m_row)
        return;
    m_row = row;
    if (listener())
        listener()->currentChanged();
}

void TextTable::setColumn(int column)
{
    checkColumn(column);
    if (column == m_column)
        return;
    m_column = column;
    if (listener())
        listener()->currentChanged();
}

void TextTable::checkRow(int row) const
{
    if (row < 0 || row >= rows())
        throw outside(u"Riga della griglia inesistente."_s, u"Riga"_s, row);
}

void TextTable::checkColumn(int column) const
{
    if (column < 0 || column >= m_columns)
        throw outside(u"Colonna della griglia inesistente."_s, u"Colonna"_s, column);
}

TextTable::BulkChange::BulkChange(TextTable &table)
    : m_table(table)
{
    ++m_table.m_bulkDepth;
}

TextTable::BulkChange::~BulkChange()
{
    --m_table.m_bulkDepth;
    if (TextTableObserver *observer = m_table.listener())
        observer->tableReset();
}

} // namespace saldoro
