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
 * memory does not grow with the text. Characters outside the ASCII range are written as Unicode
 * with a fallback, control characters and braces are escaped, CR LF, CR and LF are one line break
 * each. Returns false when the device refuses a write.
 */
bool WriteRtf(QIODevice &device, const QString &text, const RtfFont &font);

} // namespace saldoro
