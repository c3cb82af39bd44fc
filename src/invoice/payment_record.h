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
    QString creditore = {}; ///< Text1_0
    QString nFat = {};      ///< Text1_1
    /** The date box: "dd/MM/yyyy" or the empty mask; while it has the focus, anything. */
    QString del = EmptyDateText.toString();
    QString descrizione = {};                       ///< Text1_3
    QString memo = {};                              ///< Memo
    QString mandato = {};                           ///< Mandato
    QString mandatoDell = EmptyDateText.toString(); ///< MandatoDell, any text that was stored
    AmountTexts amounts = {};
    /** Kind code of the payment that the number was loaded from; none for a new payment. */
    std::optional<QString> storedKind = {};
};

} // namespace saldoro
