#include "controls/text_table.h"

#include "common/errors.h"

#include <QRegularExpression>

#include <algorithm>

namespace saldoro {

using namespace Qt::StringLiterals;

namespace {

/** Throws unless @p isWithin. */
void require(bool isWithin, const QString &problem, Detail detail, int index)
{
    if (isWithin)
        return;
    BoundsError error(problem);
    error.addDetail(detail, QString::number(index));
    throw error;
}

} // namespace

TextTable::TextTable(int columns)
    : m_cells{QStringList(columns)}
{
}

void TextTable::setRows(int rows)
{
    require(rows > 0, u"Numero di righe della griglia non ammesso."_s, Detail::Rows, rows);
    const int before = this->rows();
    if (rows == before)
        return;
    const BulkChange change(*this);
    m_cells.resize(rows);
    for (int row = before; row < rows; ++row)
        m_cells[row].resize(columns());
    m_row = std::min(m_row, rows - 1);
}

void TextTable::setHeader(const QStringList &headings)
{
    const BulkChange change(*this);
    m_cells = {headings};
    m_row = 0;
    if (m_column >= headings.size())
        m_column = 0;
}

QString TextTable::text(int row, int column) const
{
    checkCell(row, column);
    return m_cells.at(row).at(column);
}

void TextTable::setText(int row, int column, const QString &text)
{
    checkCell(row, column);
    m_cells[row][column] = text;
    if (m_bulkDepth > 0)
        return;
    const QModelIndex cell = index(row - 1, column);
    if (cell.isValid())
        emit dataChanged(cell, cell);
    else
        emit headerDataChanged(Qt::Horizontal, column, column);
}

void TextTable::setCurrentCell(int row, int column)
{
    checkCell(row, column);
    if (row == m_row && column == m_column)
        return;
    m_row = row;
    m_column = column;
    if (m_bulkDepth == 0)
        emit currentMoved();
}

QString TextTable::tabText(int first, int last) const
{
    static const QRegularExpression special(u"[\t\r\n\"]"_s);
    QString all;
    for (int row = first; row <= last; ++row) {
        QStringList cells = m_cells.at(row);
        for (QString &cell : cells) {
            if (cell.contains(special))
                cell = u'"' + cell.replace(u'"', u"\"\""_s) + u'"';
        }
        all += cells.join(u'\t') + u'\n';
    }
    return all;
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
    return parent.isValid() ? 0 : columns();
}

QVariant TextTable::data(const QModelIndex &index, int role) const
{
    return checkIndex(index, CheckIndexOption::IndexIsValid)
               ? cellData(index.row() + 1, index.column(), role)
               : QVariant();
}

QVariant TextTable::headerData(int section, Qt::Orientation orientation, int role) const
{
    return orientation == Qt::Horizontal && section >= 0 && section < columns()
               ? cellData(0, section, role)
               : QVariant();
}

QVariant TextTable::cellData(int row, int column, int role) const
{
    if (role == Qt::DisplayRole)
        return text(row, column);
    if (role != Qt::TextAlignmentRole)
        return {};
    Qt::Alignment side = row == 0 ? Qt::AlignHCenter : Qt::AlignLeft;
    if (m_rightAligned.contains(column))
        side = Qt::AlignRight;
    return QVariant::fromValue(side | Qt::AlignVCenter);
}

void TextTable::checkCell(int row, int column) const
{
    require(row >= 0 && row < rows(), u"Riga della griglia inesistente."_s, Detail::Row, row);
    require(column >= 0 && column < columns(), u"Colonna della griglia inesistente."_s,
            Detail::Column, column);
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
