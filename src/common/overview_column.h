#pragma once

namespace saldoro {

/** Columns of the overview; the invoice forms and the documents read it by these places. */
namespace OverviewColumn {
inline constexpr int Cod = 0;
inline constexpr int Descrizione = 1;
inline constexpr int Spesa = 2;
inline constexpr int Pagato = 3;
inline constexpr int Disponibilita = 4;
inline constexpr int Count = 5;
} // namespace OverviewColumn

} // namespace saldoro
