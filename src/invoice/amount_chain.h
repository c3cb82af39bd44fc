#pragma once

#include "common/creditor_kind.h"
#include "common/currency.h"

#include <QList>
#include <QMap>
#include <QString>

namespace saldoro {

/** The amounts of an invoice. A company has Importo, AliquotaIva, ImportoIva, TotaleFattura. */
enum class Amount
{
    Prestazione,
    Contributo,
    CassaPrev,
    Importo, ///< base for VAT: a company's invoice, a professional's "Somma soggetta a Iva"
    AliquotaIva,
    ImportoIva,
    AltriImporti,
    TotaleFattura, ///< what the allocations are compared with
    SoggettaRA,    ///< base for the withholding
    AliquotaRA,
    ImportoRA,
    Netto
};

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
    OnRequest ///< only by mnemonic or click, for a derived field that leaving does not turn back
              ///< into display form: merely passing through it would change its text
};

/** All that there is to know of one amount field of an invoice form. */
struct AmountField
{
    Amount amount = Amount::Importo;
    QString objectName; ///< of its box, e.g. "Text4_0"
    AmountRole role = AmountRole::Typed;
    QString caption; ///< with its mnemonic, if any; empty behind a rate, whose line it shares
    QString hint;
    QString column = {}; ///< of the ledger; empty for a value that is not stored
    Reach reach = Reach::InTurn;
};

/**
 * The texts of an invoice form's amount fields, which are the whole state of its amounts, and the
 * arithmetic on them. A field is in plain form ("1234.56") while it has the focus and, as a rule,
 * in display form ("1.234,56") otherwise. One that was never set is empty, and an empty text counts
 * as 0. A result beyond the currency range throws OverflowError.
 */
class AmountTexts
{
public:
    QString text(Amount field) const { return m_texts.value(field); }
    void setText(Amount field, const QString &text) { m_texts[field] = text; }

    /** Turns a field that gets the focus into plain form. The form then selects it. */
    void makePlain(Amount field);

    /** The value of a field's text taken as Italian notation; the text stays as it is. */
    Currency amount(Amount field) const;
    void show(Amount field, Currency value);
    /** Takes a field's text as plain form and shows it in display form. */
    void showTyped(Amount field);
    /** Rewrites a rate as the plain number that was understood. Throws OverflowError for an
     *  infinite one. */
    void showRate(Amount field);
    /** Base amount times rate over 100, multiplied and divided as floating point. Throws
     *  OverflowError also for an infinite rate. */
    Currency share(Amount base, Amount rate) const;
    /** What TotaleFattura should be by the amounts that it is made of. */
    Currency dueTotal() const;

    /** What the column of @p field gets. */
    Currency storedValue(const AmountField &field) const;
    /** Shows a payment of the ledger: an amount in display form, a rate as plain text. Nulls, which
     *  @p stored leaves out, stay empty. TotaleFattura and Netto follow from the stored values,
     *  SoggettaRA from the texts that are shown. */
    void showStored(const QList<AmountField> &fields, const QMap<Amount, Currency> &stored);

private:
    double rate(Amount field) const;

    QMap<Amount, QString> m_texts;
};

/** The amount fields of one kind of invoice, and what leaving one of them does to the texts. */
struct AmountChain
{
    QList<AmountField> fields; ///< in reading order
    void (*leave)(AmountTexts &texts, Amount field) = nullptr;

    /** A field that the chain has. */
    const AmountField &at(Amount field) const;
    /** What it is called by itself, also where two share a caption. */
    QString nameOf(Amount field) const;
};

/**
 * Amounts of a company's invoice. VAT is computed again whenever the rate is left, and only then;
 * a later change of the taxable amount moves the total alone. A typed total stays as typed until
 * another amount is left.
 */
const AmountChain &CompanyAmounts();

/**
 * Amounts of a professional's fee note. Nothing is multiplied by 4 % or 2 %: both contributions
 * are typed. VAT and withholding follow from their rates only when their own field is empty: the
 * VAT amount when its text is empty or "0", the withholding when its text read as plain form is
 * zero, so a "0,50" in display form is replaced.
 */
const AmountChain &ProfessionalAmounts();

/** Whether a field of a professional's invoice stays in the plain form it was typed in when it is
 *  left, although its text is later read as display form, where points are dropped. A company's
 *  TotaleFattura stays as typed, too, but is no such field: its text is only compared. */
bool StaysPlain(Amount field);

/** What a professional's Importo, SoggettaRA and Netto should be by the amounts that they are made
 *  of. */
Currency DueVatBase(const AmountTexts &texts);
Currency DueWithholdingBase(const AmountTexts &texts);
Currency DueNet(const AmountTexts &texts);

/** The one of the two that an invoice of @p kind has. */
const AmountChain &AmountChainOf(CreditorKind kind);

} // namespace saldoro
