#pragma once

#include "database/record_set.h"

#include <array>

namespace saldoro {

/** The fields of a payment, in the order of FattureTable(). */
enum class PaymentField
{
    AziProf,
    Npag,
    Creditore,
    NFat,
    Del,
    Memo,
    Descrizione,
    Aliquota,
    Importo,
    ImportoIVA,
    AliquotaRA,
    ImportoPrest,
    Contributo,
    CassaPrev,
    ImportoRA,
    AltriImporti01,
    Count
};

/**
 * The payment that an open set of the ledger's payments stands on. It goes along with the set,
 * which must outlive it, and finds each column once, so it suits a run over many payments.
 */
class LedgerPayment
{
public:
    explicit LedgerPayment(const RecordSet &fatture);

    /** A field of the payment; what a null counts as is for the caller to say. Throws
     *  FieldMissing, NoCurrentRecord. */
    FieldValue field(PaymentField field) const;

    /** Whether the kind is exactly "P"; every other payment counts as a company's. */
    bool isProfessional() const;

    /** What a professional's payment holds beside fee and VAT, a null being 0; 0 for companies. */
    Currency otherAmounts() const;

    /** Importo, ImportoIVA and the other amounts. A null in the first two throws NullValue, a sum
     *  beyond the currency range OverflowError. */
    Currency grossAmount() const;

private:
    const RecordSet &m_fatture;
    mutable std::array<int, static_cast<std::size_t>(PaymentField::Count)> m_columns{};
};

} // namespace saldoro
