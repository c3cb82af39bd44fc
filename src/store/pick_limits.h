#pragma once

namespace saldoro {

/** Characters of a code that a pick of a cost item hands on. */
inline constexpr int PickedCodeWidth = 5;
/** Most cost items that can be offered for a pick. */
inline constexpr int PickListSize = 201;

} // namespace saldoro
