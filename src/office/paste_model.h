#pragma once

#include "exchange/pasted_table.h"

#include <QAbstractTableModel>

#include <functional>

namespace saldoro {

/** Shows a PastedTable to the toolkit's views: what becomes of each row, then its cells, which can
 *  be changed. */
class PasteModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    /** The column that says what becomes of a row; those of the cells follow. */
    static constexpr int StateColumn = 0;

    /** @p pasted must outlive the model. */
    explicit PasteModel(PastedTable &pasted, QObject *parent = nullptr)
        : QAbstractTableModel(parent)
        , m_pasted(pasted)
    {
    }

    /** Makes a change of the table that may be one of all rows. */
    void change(const std::function<void()> &action);

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;
    bool setData(const QModelIndex &index, const QVariant &value, int role) override;

private:
    PastedTable &m_pasted;
};

} // namespace saldoro
