#pragma once

#include "common/creditor_kind.h"
#include "invoice/amount_chain.h"

#include <QGroupBox>

#include <memory>

class QGridLayout;
class QLineEdit;

namespace saldoro {

class FormFields;

/** Widest amount that is expected in a box. */
inline constexpr QStringView WidestAmount = u"999.999.999,99";

/** Least width in pixels of a box that shows @p widest. */
int BoxWidth(const QWidget &box, QStringView widest);

/**
 * The block of amount fields of an invoice form: one column of right-aligned boxes beside their
 * labels, those that the form computes being tinted. What the boxes read is the state; the chain
 * says what entering and leaving one does to the others.
 */
class AmountFields : public QGroupBox, public AmountTexts
{
public:
    /** @p fields must outlive the block. */
    AmountFields(CreditorKind kind, FormFields &fields, QWidget *parent);

    AmountChain &chain() { return *m_chain; }
    QLineEdit &totalBox() const { return *m_boxes.at(m_chain->totalField()); }

    QString text(int position) const override;
    void setText(int position, const QString &text) override;

protected:
    void changeEvent(QEvent *event) override;

private:
    QLineEdit *addBox(int position, const QString &spokenName, FormFields &fields);
    void addLine(QGridLayout &grid, int position, FormFields &fields);
    void tintDerived();

    std::unique_ptr<AmountChain> m_chain;
    QList<QLineEdit *> m_boxes;
};

} // namespace saldoro
