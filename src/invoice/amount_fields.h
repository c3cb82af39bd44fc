#pragma once

#include "invoice/invoice_notices.h"

#include <QGroupBox>

class QLineEdit;

namespace saldoro {

class FieldNavigation;

/**
 * The block of amount fields of an invoice form: one column of right-aligned boxes beside their
 * labels, those that the form computes being tinted. What the boxes read is the state. A box
 * that gets the focus turns into plain form; what leaving it does to all: AmountChain.
 */
class AmountFields : public QGroupBox
{
public:
    /** @p navigation must outlive the block. */
    AmountFields(CreditorKind kind, FieldNavigation &navigation, QWidget *parent);

    QLineEdit &totalBox() const { return *m_boxes[Amount::TotaleFattura]; }

    AmountTexts texts() const;
    void showTexts(const AmountTexts &texts);

    /** What the fields that have been entered held before. */
    const QMap<Amount, AmountPast> &past() const { return m_past; }

protected:
    void changeEvent(QEvent *event) override;

private:
    QLineEdit *addBox(const AmountField &field, FieldNavigation &navigation);
    void entered(Amount field);
    void left(Amount field);
    void tintDerived();

    const AmountChain &m_chain;
    QMap<Amount, QLineEdit *> m_boxes;
    QMap<Amount, AmountPast> m_past;
};

} // namespace saldoro
