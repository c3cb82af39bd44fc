#pragma once

#include <QLatin1StringView>

namespace saldoro {

/*
 * The orders in which the main screen shows its rows, for queries. Rows that were read without them
 * are put into the same orders in verify/project_rows; nulls come first. Texts go by CompareText(),
 * letter by letter: A10 before A2.
 */
inline constexpr QLatin1StringView PaymentsOrder(" ORDER BY Npag ");
inline constexpr QLatin1StringView BudgetOrder(" ORDER BY Voce");

} // namespace saldoro
