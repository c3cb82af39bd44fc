#pragma once

#include "common/program_values.h"
#include "database/record_set.h"

#include <QString>

namespace saldoro {

/*
 * Look-ups in the suite's code map, by the internal codes of store/internal_codes.h. They throw
 * DatabaseError; the last two give it the detail "Codice", and throw NullValue for a null.
 */

/** The code map with the row of an internal code as its current record, if it has one. */
RecordSet FindCode(const ProgramValues &values, QStringView internalCode);

/** External code of an internal one, as text; the empty text when the code is not mapped. */
QString CodiceEsterno(const ProgramValues &values, QStringView internalCode);

/** Description of an internal code. A code that is not mapped throws NoCurrentRecord. */
QString DescrizioneFunzione(const ProgramValues &values, QStringView internalCode);

} // namespace saldoro
