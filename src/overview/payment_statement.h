#pragma once

#include "common/program_values.h"
#include "database/record_set.h"

namespace saldoro {

/**
 * Composes the statement of the payment that a set of the ledger's payments stands on: labelled
 * lines joined by CR LF, in the layout for professionals when the kind is exactly "P" and in the
 * one for companies otherwise. The text goes to values.TestoPagamento and the payment's gross
 * amount is added to values.TotaleLiquidato; other amounts count only for professionals.
 *
 * Null texts and dates read as empty, a null AltriImporti01 as 0. A null number, a null in any
 * other amount that the layout shows, and a day that is none throw DatabaseError, a sum beyond the
 * currency range OverflowError; both name the payment as far as its number is known and leave @p
 * values as they were.
 */
void ComponiTestoPagamento(const RecordSet &payment, ProgramValues &values);

} // namespace saldoro
