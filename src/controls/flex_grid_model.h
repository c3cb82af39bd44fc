#pragma once

#include "controls/text_table.h"

#include <QAbstractTableModel>
#include <QList>

namespace saldoro {

/**
 * A TextTable as the toolkit's views read it: the table's row 0 is the horizontal header, its row
 * n the model's row n - 1. Observes the table and tells the views; between the table's changes it
 * keeps the number of rows and columns that they know of.
 */
class FlexGridModel : public QAbstractTableModel, public TextTableObserver
{
    Q_OBJECT

public:
    /** @param table must outlive the model. */
    explicit FlexGridModel(TextTable &table);
    ~FlexGridModel() override;

    /** Columns whose texts stand to the right, those of the header too. */
    void setRightAligned(const QList<int> &columns);
    const QList<int> &rightAligned() const { return m_rightAligned; }

    /** True while the views are being told of other rows or columns; what they then make the
     *  current cell is not the user's choice. */
    bool isChanging() const { return m_isChanging; }

    /** The table's current cell; invalid while that is in the header. */
    QModelIndex currentCell() const;

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

    void tableReset() override;
    void rowsChanged() override;
    void cellChanged(int row, int column) override;
    void currentChanged() override;

signals:
    /** A table cell, header or body, has a new text. */
    void textChanged(int row, int column);
    /** The table's current cell is another; not sent along with a change of rows or columns. */
    void currentMoved();

private:
    TextTable &m_table;
    QList<int> m_rightAligned;
    int m_rows = 0;
    int m_columns = 0;
    bool m_isChanging = false;
};

} // namespace saldoro
