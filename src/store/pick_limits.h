#pragma once

#include "common/characters.h"

namespace saldoro {

/** A picked cost item's code is cut to this many characters. */
inline constexpr int PickedCodeWidth = 5;

/** The code that a pick takes from a line, which begins with the code of a cost item. */
inline QString PickedCode(const QString &line)
{
    return LeftCharacters(line, PickedCodeWidth).trimmed();
}

/** Most cost items that can be offered for a pick. */
inline constexpr int PickListSize = 201;

} // namespace saldoro
