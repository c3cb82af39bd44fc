#pragma once

#include "common/date_text.h"

#include <QString>

namespace saldoro {

/** The texts of an invoice form beside its amounts and allocations, as the widgets show them. */
struct PaymentRecord
{
    QString creditore;                              ///< Text1_0
    QString nFat;                                   ///< Text1_1
    QString del = EmptyDateText.toString();         ///< MaskEdBox1, "dd/MM/yyyy" or the empty mask
    QString descrizione;                            ///< Text1_3
    QString memo;                                   ///< Memo
    QString mandato;                                ///< Mandato
    QString mandatoDell = EmptyDateText.toString(); ///< MandatoDell, any text that was stored
};

} // namespace saldoro
