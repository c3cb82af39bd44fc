#include "common/legacy_text.h"

#include <algorithm>
#include <array>

namespace saldoro {

namespace {

/** The characters of the bytes 0x80 to 0x9F; the five places without one stand for themselves. */
constexpr std::array<char16_t, 32> upperControls{
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};
constexpr size_t firstUpper = 0x80;

} // namespace

QString TextOfUtf8(QByteArrayView bytes)
{
    if (bytes.startsWith(Utf8Mark)) // which the toolkit would drop
        return QChar(QChar::ByteOrderMark) + TextOfUtf8(bytes.sliced(Utf8Mark.size()));
    return QString::fromUtf8(bytes);
}

QString TextOfStoredBytes(QByteArrayView bytes)
{
    if (bytes.isValidUtf8())
        return TextOfUtf8(bytes);
    QString text = QString::fromLatin1(bytes);
    for (QChar &character : text) {
        const auto place = static_cast<size_t>(character.unicode()) - firstUpper;
        if (character.unicode() >= firstUpper && place < upperControls.size())
            character = QChar(upperControls.at(place));
    }
    return text;
}

std::optional<unsigned char> CodePageByte(char16_t character)
{
    if (character >= firstUpper + upperControls.size() && character <= 0xFF)
        return static_cast<unsigned char>(character);
    const auto *const found = std::find(upperControls.begin(), upperControls.end(), character);
    // A place that stands for itself has no character.
    if (found == upperControls.end() || character <= 0xFF)
        return std::nullopt;
    return static_cast<unsigned char>(firstUpper +
                                      static_cast<size_t>(found - upperControls.begin()));
}

} // namespace saldoro
