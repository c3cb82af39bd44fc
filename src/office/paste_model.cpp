#include "office/paste_model.h"

#include <QApplication>
#include <QFont>
#include <QPalette>
#include <QScopeGuard>
#include <QStyle>

namespace saldoro {

using namespace Qt::StringLiterals;

void PasteModel::change(const std::function<void()> &action)
{
    beginResetModel();
    const auto end = qScopeGuard([this] { endResetModel(); });
    action();
}

int PasteModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_pasted.rows().size());
}

int PasteModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : 1 + static_cast<int>(m_pasted.columns());
}

QVariant PasteModel::data(const QModelIndex &index, int role) const
{
    const PastedRow &row = m_pasted.rows()[index.row()];
    const bool isState = index.column() == StateColumn;
    const bool isFaulty = row.state == PastedState::Faulty;
    switch (role) {
    case Qt::DisplayRole:
    case Qt::EditRole:
        return isState ? row.reason : row.cells[index.column() - 1];
    case Qt::ToolTipRole:
        return row.reason;
    case Qt::DecorationRole:
        return isState && isFaulty
                   ? QApplication::style()->standardIcon(QStyle::SP_MessageBoxWarning)
                   : QVariant();
    case Qt::FontRole: {
        QFont font;
        font.setBold(isState && isFaulty);
        return font;
    }
    case Qt::ForegroundRole:
        return isFaulty || row.state == PastedState::Taken
                   ? QVariant()
                   : QApplication::palette().brush(QPalette::Disabled, QPalette::Text);
    case Qt::TextAlignmentRole:
        return index.column() - 1 == m_pasted.columnOf(u"Importo"_s)
                   ? QVariant(Qt::AlignRight | Qt::AlignVCenter)
                   : QVariant();
    default:
        return {};
    }
}

QVariant PasteModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (role != Qt::DisplayRole)
        return {};
    if (orientation == Qt::Vertical)
        return section + 1;
    return section == StateColumn ? u"Esito"_s : m_pasted.columnName(section - 1);
}

Qt::ItemFlags PasteModel::flags(const QModelIndex &index) const
{
    const bool isFixed =
        index.column() == StateColumn || m_pasted.rows()[index.row()].state == PastedState::Kept;
    return QAbstractTableModel::flags(index) | (isFixed ? Qt::NoItemFlags : Qt::ItemIsEditable);
}

bool PasteModel::setData(const QModelIndex &index, const QVariant &value, int role)
{
    if (role != Qt::EditRole)
        return false;
    m_pasted.setCell(index.row(), index.column() - 1, value.toString());
    // A cell may decide on the notation of all, and a code on that of another row.
    emit dataChanged(this->index(0, 0), this->index(rowCount() - 1, columnCount() - 1));
    return true;
}

} // namespace saldoro
