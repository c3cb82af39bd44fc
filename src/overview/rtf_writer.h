#pragma once

#include <QString>

class QIODevice;

namespace saldoro {

/** Characters of a fixed-pitch font that fit a line of a document. */
inline constexpr qsizetype DocumentLineWidth = 93;

/**
 * Writes @p text as an RTF document of Italian text in one font, at 8.5 points, to @p device, in
 * pieces, so that memory does not grow with the text. Returns false when the device refuses a
 * write. The sheets are A4; DocumentLineWidth characters of a fixed-pitch font fit a line.
 *
 * The file is plain ASCII. Each CR LF, CR, LF, vertical tab and form feed is one \par; a text that
 * ends in a line break gets one more, because word processors take the last \par for the end of
 * the line before it.
 * Characters beyond ASCII are \u numbers, in two halves beyond the basic plane, each with the byte
 * of code page 1252, or "?", as a fallback for old readers; half a pair is written as U+FFFD.
 * Braces and backslashes are escaped, tabs are \tab. The other control characters are byte
 * escapes: readers may show or drop them, word processors drop those below the blank. NUL is left
 * out, since some readers take it for the end of the text.
 */
bool WriteRtf(QIODevice &device, const QString &text, const QString &fontName);

} // namespace saldoro
