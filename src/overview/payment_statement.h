#pragma once

#include "common/program_values.h"
#include "database/record_set.h"

#include <array>

namespace saldoro {

/**
 * Composes the statements of the payments of one open set of the ledger's payments, which must
 * outlive it. Finds the set's fields once, so it suits a run over many payments.
 */
class PaymentStatements
{
public:
    /** Throws DatabaseError when the set lacks a field of the ledger. */
    explicit PaymentStatements(const RecordSet &fatture);

    /**
     * Composes the statement of the payment that the set stands on: labelled lines joined by CR LF,
     * in the layout for professionals when the kind is exactly "P" and in the one for companies
     * otherwise. The text goes to values.TestoPagamento and the payment's gross amount is added to
     * values.TotaleLiquidato; other amounts count only for professionals.
     *
     * Null texts and dates read as empty, a null AltriImporti01 as 0. Any other null throws
     * DatabaseError, a sum beyond the currency range OverflowError; both name the payment as far
     * as its number is known and leave @p values as they were.
     */
    void composeCurrent(ProgramValues &values) const;

    /** The fields of the ledger that statements are made of, in the order of their names in the
     *  implementation. */
    enum class Field : unsigned
    {
        Number,
        Kind,
        Creditor,
        InvoiceNumber,
        InvoiceDay,
        Note,
        Description,
        Amount,
        Tax,
        Fee,
        Contribution,
        Fund,
        Withholding,
        OtherAmounts
    };
    FieldValue value(Field field) const
    {
        return m_fatture.field(m_columns.at(static_cast<unsigned>(field)));
    }

private:
    const RecordSet &m_fatture;
    std::array<int, 14> m_columns{};
};

/** PaymentStatements::composeCurrent() for the one payment that @p fatture stands on. */
void ComponiTestoPagamento(RecordSet &fatture, ProgramValues &values);

} // namespace saldoro
