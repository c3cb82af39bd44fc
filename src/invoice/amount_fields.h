#pragma once

#include "invoice/amount_chain.h"

#include <QGroupBox>

class QGridLayout;
class QLineEdit;

namespace saldoro {

class FormFields;

/** Widest amount that is expected in a box. */
inline constexpr QStringView WidestAmount = u"999.999.999,99";

/** Least width in pixels of a box that shows @p widest. */
int BoxWidth(const QWidget &box, QStringView widest);

/** How the keyboard gets to an amount. */
enum class Reach
{
    InTurn,   ///< by Enter and Tab
    OnRequest ///< by its mnemonic or a click alone: a computed amount that stays in plain form when
              ///< it is left, and would then be misread, must not be passed through unawares
};

/** One line of the block of amounts. */
struct AmountRow
{
    QString caption;
    /** Object name of a rate to the left of the amount; empty for none. */
    QString rateName;
    /** Object name of the amount. */
    QString amountName;
    QString hint;
    Reach reach = Reach::InTurn;
};

/**
 * The block of amount fields of an invoice form: one column of right-aligned boxes beside their
 * labels, those that the form computes being tinted. What the boxes read is the state; the chain
 * says what entering and leaving one does to the others.
 */
class AmountFields : public QGroupBox
{
public:
    /** @p chain and @p fields must outlive the block; the rows name all fields of the chain, in its
     *  order. */
    AmountFields(AmountChain &chain, const QList<AmountRow> &rows, FormFields &fields,
                 QWidget *parent);

    /** Hands what the boxes read to the chain. */
    void readAll();
    /** Shows the chain's texts in the boxes. */
    void showAll();

    QLineEdit &box(int position) const { return *m_boxes.at(position); }

protected:
    void changeEvent(QEvent *event) override;

private:
    QLineEdit *addBox(const QString &objectName, const QString &name, const QString &hint,
                      FormFields &fields);
    void addRow(QGridLayout &grid, const AmountRow &row, FormFields &fields);
    void entered(int position);
    void left(int position);
    void tintDerived();

    AmountChain &m_chain;
    QList<QLineEdit *> m_boxes;
};

} // namespace saldoro
