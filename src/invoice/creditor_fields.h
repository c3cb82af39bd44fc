#pragma once

#include "invoice/payment_record.h"

#include <QWidget>

#include <functional>

class QGridLayout;
class QHBoxLayout;
class QPushButton;

namespace saldoro {

class DateBox;
class EntryField;
class FieldNavigation;
class PopupList;

/**
 * The head of an invoice form: the creditor with the buttons that offer names for him in a pick
 * list, and the invoice's number, date and description.
 */
class CreditorFields : public QWidget
{
public:
    /** Gives the names that a button offers. */
    using Names = std::function<QStringList()>;

    /** @p navigation must outlive the block; the pick list floats over @p form. */
    CreditorFields(CreditorKind kind, FieldNavigation &navigation, QWidget *form);

    /** Adds a button beside the creditor; in the Tab order it comes before him. The list is shown
     *  even when @p names gives none. */
    QPushButton *addList(const QString &objectName, const QString &caption, const QString &hint,
                         Names names);

    EntryField &creditorBox() const { return *m_creditor; }
    /** Of the invoice's date. */
    DateBox &dateBox() const { return *m_date; }
    /** Whether the pick list is open and has no name. */
    bool offersNone() const;

    void showRecord(const PaymentRecord &record);
    void readInto(PaymentRecord &record) const;

private:
    void addCreditor(QGridLayout &grid);
    void addInvoice(QGridLayout &grid, CreditorKind kind);
    void preparePickList();

    FieldNavigation &m_navigation;
    PopupList *m_list; ///< made before m_creditor, so that Tab reaches it first
    EntryField *m_creditor;
    QHBoxLayout *m_buttons;
    QWidget *m_lastButton; ///< in the Tab order; the list while there is none
    EntryField *m_number;
    DateBox *m_date;
    EntryField *m_description;
};

} // namespace saldoro
