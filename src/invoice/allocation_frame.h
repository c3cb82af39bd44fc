#pragma once

#include "invoice/allocation_block.h"

#include <QGroupBox>

class QBoxLayout;
class QLabel;
class QLineEdit;

namespace saldoro {

class FlexGrid;
class FormFields;
class PopupList;

/**
 * The frame in which a payment is spread over cost items: the grid with its in-place editor, the
 * pop-up list of items, two buttons and the total, shown below the invoice's for comparison.
 */
class AllocationFrame : public QGroupBox
{
public:
    /** What the frame takes its items from and where its deletions go; all must outlive it. */
    struct Sources
    {
        const TextTable &overview;
        const ProgramValues &values;
    };

    /** The pick list floats over @p form, the frame's window. */
    AllocationFrame(const QString &caption, const Sources &sources, FormFields &fields,
                    QWidget *form);

    /** The grid's content. */
    TextTable &table();

    /** Starts on a payment: the header alone, editor and pick list hidden. */
    void prepare(qint32 paymentNumber);
    /** Sums the grid and shows the total. */
    void recalculate();
    /** Repeats the invoice's total beside that of the allocations. */
    void showInvoiceTotal(const QString &text);
    /** The sum in display form, as last shown. */
    const QString &totalText() const { return m_block.totalText(); }

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    void addGrid();
    void addEditor();
    void addPickList();
    QBoxLayout *makeButtons();
    QLayout *makeTotals();

    void insertItem();
    void itemPicked(int line);
    void pickListLeft();
    void deleteItem();

    void openEditor();
    void placeEditor();
    void giveAmountBack();
    void editorConfirmed();
    void editorLeft();
    void showTotal();

    const ProgramValues &m_values;
    FormFields &m_fields;
    FlexGrid *m_grid;
    QLineEdit *m_editor;
    PopupList *m_list;
    QLabel *m_invoiceTotal;
    QLineEdit *m_total;
    AllocationBlock m_block;
    qint32 m_paymentNumber = 0;
};

} // namespace saldoro
