#pragma once

#include "common/creditor_kind.h"
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

/** One amount field of an invoice form. */
struct AmountField
{
    /** Object name of its widget, e.g. "Text4_0". */
    QString objectName;
    AmountRole role = AmountRole::Typed;
};

/** A ledger column of a payment and the field that shows it. */
struct StoredAmount
{
    QString column;
    int field = 0;
};

/**
 * The amount fields of one invoice form as texts, and what entering and leaving a field does to
 * them. The texts are the whole state: a form hands over what its widgets show (setText), tells
 * entered() and left(), and shows text() of every field again.
 *
 * A field is in plain form ("1234.56") while it has the focus and, as a rule, in display form
 * ("1.234,56") otherwise. Fields are addressed by position, 0 to fieldCount() - 1, in reading
 * order; positions out of range throw BoundsError. A result beyond the currency range throws
 * OverflowError.
 */
class AmountChain
{
public:
    virtual ~AmountChain() = default;
    AmountChain(const AmountChain &) = delete;
    AmountChain &operator=(const AmountChain &) = delete;

    int fieldCount() const { return static_cast<int>(m_fields.size()); }
    const AmountField &field(int position) const;
    /** Position of the field of that object name; throws BoundsError when there is none. */
    int position(const QString &objectName) const;

    QString text(int position) const;
    void setText(int position, const QString &text);

    /** The field got the focus: its text is turned into plain form. The form then selects it. */
    void entered(int position);
    /** The field lost the focus: whatever follows from that is written into the texts. */
    virtual void left(int position) = 0;

    /** Which payments these fields describe. */
    virtual CreditorKind kind() const = 0;
    /** Position of "Totale Fattura", which the allocations are compared with. */
    virtual int totalField() const = 0;
    /** The ledger columns behind the fields, in the order in which a save writes them. */
    virtual const QList<StoredAmount> &storedAmounts() const = 0;

    /** Shows a stored value in its field: a rate as plain text, an amount in display form, an
     *  absent value as the empty text. */
    void showStored(int position, std::optional<Currency> value);
    /** Fills the fields that are not stored. @p stored holds the ledger's value for each position,
     *  0 for absent values and fields without a column; showStored() has been called before. */
    virtual void fillDerived(const QList<Currency> &stored) = 0;

protected:
    explicit AmountChain(QList<AmountField> fields);

    /** Throws BoundsError. */
    [[noreturn]] static void throwNoSuchField();
    /** The value of a field's text taken as Italian notation; the text stays as it is. */
    Currency amount(int position) const;
    void show(int position, Currency value);
    /** Takes the field's text as plain form and shows it in display form. */
    void showTyped(int position);
    /** The percentage that a field's text begins with; throws OverflowError when infinite. */
    double rate(int position) const;
    /** Rewrites a rate field as the plain number that was understood. */
    void showRate(int position);
    /** Base amount times rate over 100, multiplied and divided as floating point. */
    Currency share(int basePosition, int ratePosition) const;

private:
    void check(int position) const;

    QList<AmountField> m_fields;
    QList<QString> m_texts;
};

} // namespace saldoro
