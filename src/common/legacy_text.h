#pragma once

#include <QByteArrayView>
#include <QString>

#include <optional>

namespace saldoro {

/** The bytes of a byte order mark, with which files in UTF-8 may begin. Exported CSV files do. */
inline constexpr QByteArrayView Utf8Mark("\xEF\xBB\xBF");

/** The characters of a text in UTF-8, a byte order mark at its beginning included. */
QString TextOfUtf8(QByteArrayView bytes);

/** The characters of a stored text. Older programs have left texts in the Western code page (1252)
 *  in the files; a text that is not valid UTF-8 is read as one of these. Each byte then gives a
 *  character of its own, so nothing is lost. CSV files without a byte order mark are read by
 *  this rule, line by line (exchange/csv_table). */
QString TextOfStoredBytes(QByteArrayView bytes);

/** The byte of that code page for a character from 0x80 on; none for a character that the page
 *  does not have. */
std::optional<unsigned char> CodePageByte(char16_t character);

} // namespace saldoro
