#pragma once

#include "common/creditor_kind.h"
#include "common/date_text.h"
#include "common/program_values.h"
#include "controls/text_table.h"
#include "invoice/amount_chain.h"

#include <QString>

#include <optional>

namespace saldoro {

/** A payment as an invoice form shows it, allocations apart: texts as the widgets have them. */
struct PaymentRecord
{
    CreditorKind kind = CreditorKind::Company;
    qint32 number = 0;
    QString creditore = {};                         ///< Text1_0
    QString nFat = {};                              ///< Text1_1
    QString del = EmptyDateText.toString();         ///< MaskEdBox1, "dd/MM/yyyy" or the empty mask
    QString descrizione = {};                       ///< Text1_3
    QString memo = {};                              ///< Memo
    QString mandato = {};                           ///< Mandato
    QString mandatoDell = EmptyDateText.toString(); ///< MandatoDell, any text that was stored
    AmountTexts amounts = {};
    /** Kind code of the payment that the number was loaded from; none for a new payment. */
    std::optional<QString> storedKind = {};
};

/** Name of the box in which a form shows PaymentRecord::del. */
inline QString DateBoxName(CreditorKind kind)
{
    return kind == CreditorKind::Company ? QStringLiteral("MaskEdBox1_0")
                                         : QStringLiteral("MaskEdBox1");
}

/**
 * Reads the first payment of the number in @p record into it, whatever that payment's kind. The
 * record comes with what the form shows before (for a company the contractor's name as creditor),
 * @p grid with its header alone.
 *
 * A number that the ledger does not hold is a new payment: it takes the notes of the last payment
 * stored and keeps everything else. Allocations and mandate note are read in both cases. An amount
 * that is null shows as the empty text and counts as 0 in the totals. Errors pass, with
 * the detail "Pagamento".
 */
void LoadPagamento(const ProgramValues &values, PaymentRecord &record, TextTable &grid);

/**
 * Writes what an invoice form shows: the payment's row, then one row per allocation in grid order,
 * each a write of its own, then the mandate note, which is also kept in `MandateText`. A payment
 * of that number and kind is changed, else added; an allocation of the same code is changed, else
 * added; none is deleted here.
 *
 * The stored description of a cost item is cut to its column. Any other text longer than its
 * column throws FieldTooSmall before its own row is written. Errors pass, with the detail
 * "Pagamento"; rows written before stay.
 */
void SavePagamento(ProgramValues &values, const PaymentRecord &record, const TextTable &grid);

} // namespace saldoro
