#pragma once

#include "exchange/pasted_table.h"
#include "office/paste_model.h"

#include <QComboBox>
#include <QLabel>
#include <QMap>
#include <QTableView>
#include <QWidget>

namespace saldoro {

/**
 * A table that cells are pasted into from a spreadsheet (Ctrl+V), or a CSV file dropped on. Above
 * it stands which column is which field, below it what will be taken. Cells are corrected in their
 * place, rows left out by Canc.
 */
class PasteTable : public QWidget
{
    Q_OBJECT

public:
    /** @param pasted must outlive the widget.
     *  @param captions of the fields, with mnemonics. */
    PasteTable(PastedTable &pasted, const QMap<QString, QString> &captions,
               QWidget *parent = nullptr);

signals:
    /** The rows that are taken may be others. */
    void changed();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    QLayout *makeColumnBoxes(const QMap<QString, QString> &captions);
    QLayout *makeButtons();
    void paste();
    void readFile(const QString &path);
    /** Puts rows in the place of those that are there, once the user agrees. */
    void replaceRows(const std::function<void()> &action);
    void addRow();
    void toggleRows();
    void showColumns();
    void showSum();

    PastedTable &m_pasted;
    PasteModel m_model;
    QTableView *m_view;
    QMap<QString, QComboBox *> m_columnBoxes; ///< by the field
    QLabel *m_sum;
};

} // namespace saldoro
