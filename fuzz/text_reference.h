#pragma once

#include "fuzzer.h"

#include <utility>
#include <vector>

namespace saldoro {

/** A character as comparisons see it: its base letter without case, and its accent or 0. */
using PlainCharacter = std::pair<char16_t, char16_t>;

/** Pieces of text that are apt to trip comparisons, patterns and quoting; letters of these only are
 *  known to the reference. */
const QStringList &HostilePieces();

/** @p text, made of HostilePieces() and plain characters, character by character. */
std::vector<PlainCharacter> PlainCharacters(const QString &text);

/** Order of two texts: base letters first, then accents; less than, equal to or greater than 0. */
int CompareSlowly(const QString &left, const QString &right);

/** What Like says: 1 for a match, 0 for none, -1 for a pattern that can't be read. Tries every way
 *  a run may stretch. */
int MatchSlowly(const QString &pattern, const QString &text);

} // namespace saldoro
