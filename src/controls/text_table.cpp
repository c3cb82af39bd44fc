#include "controls/text_table.h"

#include "common/errors.h"

#include <algorithm>
#include <limits>

namespace saldoro {

using namespace Qt::StringLiterals;

namespace {

/** Throws unless @p index is at least @p least and less than @p end. */
void requireWithin(int index, int least, qsizetype end, const QString &problem,
                   const QString &label)
{
    if (index >= least && index < end)
        return;
    BoundsError error(problem);
    error.addDetail(label, QString::number(index));
    throw error;
}

constexpr int anySize = std::numeric_limits<int>::max();

} // namespace

TextTable::TextTable(int columns)
    : m_cells(1)
{
    setColumns(columns);
}

void TextTable::setRows(int rows)
{
    requireWithin(rows, 1, anySize, u"Numero di righe della griglia non ammesso."_s, u"Righe"_s);
    const int before = this->rows();
    if (rows == before)
        return;
    const BulkChange change(*this);
    m_cells.resize(rows);
    for (int row = before; row < rows; ++row)
        m_cells[row].resize(m_columns);
    m_row = std::min(m_row, rows - 1);
}

void TextTable::setColumns(int columns)
{
    requireWithin(columns, 0, anySize, u"Numero di colonne della griglia non ammesso."_s,
                  u"Colonne"_s);
    if (columns == m_columns)
        return;
    const BulkChange change(*this);
    for (QStringList &row : m_cells)
        row.resize(columns);
    m_columns = columns;
    m_column = std::clamp(m_column, 0, std::max(0, columns - 1));
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
    if (m_bulkDepth > 0)
        return;
    const QModelIndex cell = index(row - 1, column);
    if (cell.isValid())
        emit dataChanged(cell, cell);
    else
        emit headerDataChanged(Qt::Horizontal, column, column);
}

void TextTable::setColumn(int column)
{
    checkColumn(column);
    setCurrentCell(m_row, column);
}

void TextTable::setCurrentCell(int row, int column)
{
    checkRow(row);
    if (row == m_row && column == m_column)
        return;
    m_row = row;
    m_column = column;
    if (m_bulkDepth == 0)
        emit currentMoved();
}

void TextTable::setRightAligned(const QList<int> &columns)
{
    const BulkChange change(*this);
    m_rightAligned = columns;
}

int TextTable::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : rows() - 1;
}

int TextTable::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : m_columns;
}

QVariant TextTable::data(const QModelIndex &index, int role) const
{
    return checkIndex(index, CheckIndexOption::IndexIsValid)
               ? cellData(index.row() + 1, index.column(), role)
               : QVariant();
}

QVariant TextTable::headerData(int section, Qt::Orientation orientation, int role) const
{
    return orientation == Qt::Horizontal && section >= 0 && section < m_columns
               ? cellData(0, section, role)
               : QVariant();
}

QVariant TextTable::cellData(int row, int column, int role) const
{
    if (role == Qt::DisplayRole)
        return m_cells.at(row).at(column);
    if (role != Qt::TextAlignmentRole)
        return {};
    Qt::Alignment side = row == 0 ? Qt::AlignHCenter : Qt::AlignLeft;
    if (m_rightAligned.contains(column))
        side = Qt::AlignRight;
    return QVariant::fromValue(side | Qt::AlignVCenter);
}

void TextTable::checkRow(int row) const
{
    requireWithin(row, 0, m_cells.size(), u"Riga della griglia inesistente."_s, u"Riga"_s);
}

void TextTable::checkColumn(int column) const
{
    requireWithin(column, 0, m_columns, u"Colonna della griglia inesistente."_s, u"Colonna"_s);
}

TextTable::BulkChange::BulkChange(TextTable &table)
    : m_table(table)
{
    if (++m_table.m_bulkDepth == 1)
        m_table.beginResetModel();
}

TextTable::BulkChange::~BulkChange()
{
    if (--m_table.m_bulkDepth == 0)
        m_table.endResetModel();
}

} // namespace saldoro
