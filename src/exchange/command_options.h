#pragma once

#include <QLatin1StringView>

namespace saldoro {

/** The options of `saldoro-archivio`. */
namespace CommandOption {
inline constexpr QLatin1StringView Codes("--codici");
inline constexpr QLatin1StringView NewProject("--nuovo");
inline constexpr QLatin1StringView Replace("--sostituisci");
inline constexpr QLatin1StringView EvenSo("--comunque");
inline constexpr QLatin1StringView Overwrite("--sovrascrivi");
} // namespace CommandOption

} // namespace saldoro
