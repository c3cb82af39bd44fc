#pragma once

#include "exchange/pasted_table.h"

#include <QComboBox>
#include <QLabel>
#include <QMap>
#include <QTableWidget>
#include <QWidget>

namespace saldoro {

/**
 * A table into which cells are pasted from a spreadsheet (Ctrl+V) or a CSV file is dropped. Boxes
 * above it choose the column of each field. A line below counts the rows to be taken and says what
 * calls for attention. The first column says what becomes of each row. The user corrects a cell in
 * its place and leaves rows out by Canc. The focus that the widget is given goes to the cells.
 */
class PasteTable : public QWidget
{
    Q_OBJECT

public:
    /** @param pasted must outlive the widget's use. */
    explicit PasteTable(PastedTable &pasted, QWidget *parent = nullptr);

signals:
    /** New rows have replaced all earlier ones; changed() follows. */
    void replaced();
    /** The rows that are taken may have changed. */
    void changed();

protected:
    void focusInEvent(QFocusEvent *event) override;
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dropEvent(QDropEvent *event) override;

private:
    void setUpView();
    QLayout *makeColumnBoxes();
    void paste();
    /** Replaces all rows by @p action; if there are any, only once the user agrees. */
    void replaceRows(const std::function<void()> &action);
    void addRow();
    void toggleRows();
    void showAll();
    void showRow(int row);
    void showSum();

    PastedTable &m_pasted;
    QTableWidget *m_view;
    QMap<QString, QComboBox *> m_columnBoxes; ///< by the field
    QLabel *m_sum;
};

} // namespace saldoro
