#pragma once

#include "rtf_reader.h"

#include <QString>

#include <random>

namespace saldoro {

/** The text as a reader is to give it back: LF for every kind of line break, no NUL, U+FFFD for
 *  half a pair. */
QString MeantText(const QString &text);

/** A text of @p parts pieces that writers and readers get wrong easily. */
QString HostileText(std::mt19937 &random, int parts);

} // namespace saldoro
