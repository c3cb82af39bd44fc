#pragma once

#include "common/errors.h"
#include "database/column_info.h"
#include "database/record_set.h"
#include "database/statement.h"

#include <variant>

namespace saldoro {

/**
 * The form in which @p value is stored in @p column, or the fault that forbids it: TypeMismatch,
 * FieldTooSmall, ZeroLengthRefused. Numbers change into each other as far as the column holds
 * them (halves to the even neighbour) and are written out in text columns; a text is never read
 * as a number.
 */
std::variant<StoredValue, DatabaseFault> StoredForm(const ColumnInfo &column,
                                                    const NewValue &value);

} // namespace saldoro
