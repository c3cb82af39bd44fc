#pragma once

#include "invoice/cost_item_choice.h"
#include "invoice/invoice_notices.h"

#include <QGroupBox>

class QLabel;
class QLineEdit;

namespace saldoro {

class FlexGrid;
class FieldNavigation;
class PopupList;

/**
 * The frame in which a payment is spread over cost items: the grid with its in-place editor, the
 * pop-up list of items, two buttons, and the total above the invoice's for comparison.
 *
 * The view's own editors are not used: they close when another window becomes the active one, and
 * Tab moves them to the next cell. The editor closes only when another control of the form gets the
 * focus; the grid then takes the focus from that control.
 */
class AllocationFrame : public QGroupBox
{
public:
    /** Items are taken from @p overview, a deletion goes to the ledger of @p values; both, the
     *  @p navigation and the form must outlive the frame. The pick list floats over @p form, the
     *  frame's window. */
    AllocationFrame(const QString &caption, const TextTable &overview, const ProgramValues &values,
                    qint32 paymentNumber, FieldNavigation &navigation, QWidget *form);

    /** The grid's content, to begin with the header alone. */
    TextTable &table();
    /** Sums the grid and shows the total; to be called once the grid is filled. Throws
     *  OverflowError. */
    void RecalcAllocationTotal();
    /** The sum in display form, as last shown. */
    QString totalText() const;
    /** What the notices have to know of the allocation. @p state gets pointers to grid and
     *  overview, and must not outlive them. */
    void readInto(InvoiceState &state) const;
    /** Where the invoice's total is repeated beside that of the allocations. */
    QLabel &invoiceTotal() const { return *m_invoiceTotal; }

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    void addGrid();
    /** Ends m_isFocusTakenBack whenever the user turns to the grid or leaves it: typing then opens
     *  the editor again. */
    void expectTyping();
    void addEditor();
    void addPickList();
    QLayout *makeButtons();
    QLayout *makeTotals();

    void insertItem(); ///< by the rules of cost_item_choice
    void itemPicked(int line);
    void deleteItem();

    void openEditor();
    void placeEditor();
    void editorLeft();

    const TextTable &m_overview;
    const ProgramValues &m_values;
    qint32 m_paymentNumber;
    FieldNavigation &m_navigation;
    FlexGrid *m_grid;
    QLineEdit *m_editor;
    PopupList *m_list;
    QLabel *m_invoiceTotal;
    QLineEdit *m_total;
    QList<OfferedItem> m_offered; ///< line by line in the pick list
    int m_editedRow = 0;
    /** Leaving the editor has sent the focus back here from where the user was heading; what is
     *  typed may be meant for that place. */
    bool m_isFocusTakenBack = false;
    TypedAllocation m_typed; ///< the text is set when the editor is left
};

} // namespace saldoro
