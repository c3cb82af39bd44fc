#include "controls/flex_grid_model.h"

#include <QScopedValueRollback>

namespace saldoro {

FlexGridModel::FlexGridModel(TextTable &table)
    : m_table(table)
    , m_rows(table.rows() - 1)
    , m_columns(table.columns())
{
    m_table.setObserver(this);
}

FlexGridModel::~FlexGridModel()
{
    m_table.setObserver(nullptr);
}

void FlexGridModel::setRightAligned(const QList<int> &columns)
{
    m_rightAligned = columns;
    tableReset();
}

QModelIndex FlexGridModel::currentCell() const
{
    return index(m_table.row() - 1, m_table.column());
}

int FlexGridModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : m_rows;
}

int FlexGridModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : m_columns;
}

QVariant FlexGridModel::data(const QModelIndex &index, int role) const
{
    // During a bulk change the table may be smaller than the views know.
    if (!index.isValid() || index.row() + 1 >= m_table.rows() ||
        index.column() >= m_table.columns())
        return {};
    if (role == Qt::DisplayRole)
        return m_table.text(index.row() + 1, index.column());
    if (role == Qt::TextAlignmentRole) {
        const Qt::Alignment side =
            m_rightAligned.contains(index.column()) ? Qt::AlignRight : Qt::AlignLeft;
        return QVariant::fromValue(side | Qt::AlignVCenter);
    }
    return {};
}

QVariant FlexGridModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || section < 0 || section >= m_table.columns())
        return {};
    if (role == Qt::DisplayRole)
        return m_table.text(0, section);
    if (role == Qt::TextAlignmentRole) {
        const Qt::Alignment side =
            m_rightAligned.contains(section) ? Qt::AlignRight : Qt::AlignHCenter;
        return QVariant::fromValue(side | Qt::AlignVCenter);
    }
    return {};
}

void FlexGridModel::tableReset()
{
    const QScopedValueRollback changing(m_isChanging, true);
    beginResetModel();
    m_rows = m_table.rows() - 1;
    m_columns = m_table.columns();
    endResetModel();
}

void FlexGridModel::rowsChanged()
{
    const QScopedValueRollback changing(m_isChanging, true);
    const int rows = m_table.rows() - 1;
    if (rows > m_rows) {
        beginInsertRows({}, m_rows, rows - 1);
        m_rows = rows;
        endInsertRows();
    } else if (rows < m_rows) {
        beginRemoveRows({}, rows, m_rows - 1);
        m_rows = rows;
        endRemoveRows();
    }
}

void FlexGridModel::cellChanged(int row, int column)
{
    if (row == 0) {
        emit headerDataChanged(Qt::Horizontal, column, column);
    } else {
        const QModelIndex cell = index(row - 1, column);
        emit dataChanged(cell, cell, {Qt::DisplayRole});
    }
    emit textChanged(row, column);
}

void FlexGridModel::currentChanged()
{
    emit currentMoved();
}

} // namespace saldoro
