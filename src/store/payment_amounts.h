#pragma once

#include "common/currency.h"
#include "database/record_set.h"

namespace saldoro {

/** The amounts beside base and VAT: for a professional what @p read gives, null being 0; for a
 *  company 0, and @p read is not called. */
template <typename Read>
Currency OtherAmounts(bool isProfessional, const Read &read)
{
    return isProfessional ? read().value_or(Currency()) : Currency();
}

/** What an invoice comes to: base, VAT and other amounts. Throws OverflowError. */
Currency GrossAmount(Currency base, Currency vat, Currency others);

/*
 * These read the current payment of an open set. They throw DatabaseError: NoCurrentRecord,
 * FieldMissing, TypeMismatch for an amount that is none, and FieldTooSmall for one out of range.
 */

/** Whether the kind is exactly "P"; every other payment counts as a company's. */
bool IsProfessional(const RecordSet &payments);

/** The other amounts that count, of `AltriImporti01`. */
Currency OtherAmounts(const RecordSet &payments);

/** Importo, ImportoIVA and the other amounts. A null in the first two throws NullValue, a sum
 *  beyond the currency range OverflowError. */
Currency GrossAmount(const RecordSet &payments);

} // namespace saldoro
