#pragma once

#include <QString>

class QIODevice;

namespace saldoro {

/** Font of a whole document. */
struct RtfFont
{
    QString name;
    /** Size in half points, as the format counts: 17 is 8.5 points. */
    int halfPoints = 17;
    /** True for a font whose characters have one width, so that readers pick a like substitute. */
    bool fixedPitch = false;
};

/**
 * Writes @p text as an RTF document of Italian text in one font to @p device, in pieces, so that
 * memory does not grow with the text. Returns false when the device refuses a write.
 *
 * The file is plain ASCII. Each CR LF, CR and LF is one \par; a text that ends in a line break
 * gets one more, because word processors take the last \par for the end of the line before it.
 * Characters beyond ASCII are \u numbers, in two halves beyond the basic plane, each with the byte
 * of code page 1252, or "?", as a fallback for old readers; half a pair is written as U+FFFD.
 * Braces and backslashes are escaped, tabs are \tab. The other control characters are byte
 * escapes: readers may show or drop them, word processors drop those below the blank. NUL is left
 * out, since some readers take it for the end of the text.
 */
bool WriteRtf(QIODevice &device, const QString &text, const RtfFont &font);

} // namespace saldoro
