#pragma once

#include "common/currency.h"

#include <QList>
#include <QString>

#include <optional>

namespace saldoro {

/** How a field gets its value; forms show the derived ones differently, all may be typed over. */
enum class AmountRole
{
    Typed,  ///< an amount that only the user writes
    Rate,   ///< a percentage that only the user writes
    Derived ///< an amount that leaving some field may write
};

/** How the keyboard gets to an amount. */
enum class Reach
{
    InTurn,   ///< by Enter and Tab
    OnRequest ///< by its mnemonic or a click alone: a computed amount that stays in plain form when
              ///< it is left, and would then be misread, must not be passed through unawares
};

/** All that there is to know of one amount field of an invoice form. */
struct AmountField
{
    QString objectName; ///< of its box, e.g. "Text4_0"
    AmountRole role = AmountRole::Typed;
    QString column;  ///< of the ledger; empty for a value that is not stored
    QString caption; ///< with its mnemonic; empty behind a rate, whose line and caption it shares
    QString hint;
    Reach reach = Reach::InTurn;
};

/** Where the texts of the amount fields are: the boxes of a form. Fields go by their position. */
class AmountTexts
{
public:
    AmountTexts() = default;
    AmountTexts(const AmountTexts &) = delete;
    AmountTexts &operator=(const AmountTexts &) = delete;
    virtual ~AmountTexts() = default;

    virtual QString text(int position) const = 0;
    virtual void setText(int position, const QString &text) = 0;
};

/**
 * The amount fields of one invoice form and what entering and leaving a field does to their texts,
 * which are the whole state.
 *
 * A field is in plain form ("1234.56") while it has the focus and, as a rule, in display form
 * ("1.234,56") otherwise. Fields are addressed by position, in reading order. A result beyond the
 * currency range throws OverflowError.
 */
class AmountChain
{
public:
    virtual ~AmountChain() = default;
    AmountChain(const AmountChain &) = delete;
    AmountChain &operator=(const AmountChain &) = delete;

    const QList<AmountField> &fields() const { return m_fields; }

    /** The field got the focus: its text is turned into plain form. The form then selects it. */
    void entered(int position);
    /** The field lost the focus: whatever follows from that is written into the texts. */
    virtual void left(int position) = 0;

    /** Position of "Totale Fattura", which the allocations are compared with. */
    virtual int totalField() const = 0;

    /** Shows a payment of the ledger; @p stored has a value for each field, none for a null and
     *  for a field without a column. A rate shows as plain text, an amount in display form and a
     *  null as the empty text, which counts as 0 in what is computed. */
    void showStored(const QList<std::optional<Currency>> &stored);
    /** What the field's column gets. */
    Currency storedValue(int position) const;
    /** Empties all fields, for a new payment. */
    void clear();

protected:
    AmountChain(QList<AmountField> fields, AmountTexts &texts);

    /** Fills the fields without a column from the values of the others. */
    virtual void showComputed(const QList<Currency> &stored) = 0;

    QString text(int position) const { return m_texts.text(position); }
    /** The value of a field's text taken as Italian notation; the text stays as it is. */
    Currency amount(int position) const;
    void show(int position, Currency value);
    /** Takes the field's text as plain form and shows it in display form. */
    void showTyped(int position);
    /** Rewrites a rate field as the plain number that was understood. */
    void showRate(int position);
    /** Base amount times rate over 100, multiplied and divided as floating point. Throws
     *  OverflowError also for an infinite rate. */
    Currency share(int basePosition, int ratePosition) const;

private:
    double rate(int position) const;

    QList<AmountField> m_fields;
    AmountTexts &m_texts;
};

} // namespace saldoro
