#pragma once

#include <QLatin1StringView>

namespace saldoro {

/*
 * The orders in which the main screen shows its rows, for queries; nulls come first. For rows that
 * are read without these clauses, verify/project_rows sorts in the same way; there a number that
 * can't be read comes first like a null. Texts go by CompareText(), letter by letter: A10 before
 * A2.
 */
inline constexpr QLatin1StringView PaymentsOrder(" ORDER BY Npag ");
inline constexpr QLatin1StringView BudgetOrder(" ORDER BY Voce");

} // namespace saldoro
