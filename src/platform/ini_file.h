#pragma once

#include <QString>

#include <optional>

namespace saldoro {

/**
 * The value of a key in a section of an INI file, or the empty text when file, section or key is
 * missing. It is cut to 254 characters and at its first NUL, and loses trailing blanks. Throws
 * nothing: a file that can't be read counts as missing.
 *
 * @param fileName archive path or path of the machine
 */
QString ReadIniString(const QString &fileName, const QString &section, const QString &key);

/**
 * The same value, whole; no value when file, section or key is missing. Throws FileError when the
 * file is there and can't be read.
 *
 * The same rules hold on every system. Letter case of section and key does not matter; of sections
 * and keys that occur twice the first counts. Blanks around section, key, "=" and value do not
 * count; one pair of quotes (" or ') around the value is dropped and keeps the blanks inside. A
 * line that begins with ";" is a comment. Text is UTF-8 (or what a byte order mark says); a file
 * that is not valid UTF-8 is read as Windows-1252. Lines end with CR LF, LF or CR.
 */
std::optional<QString> FindIniValue(const QString &fileName, const QString &section,
                                    const QString &key);

/** Sets a key: replaces its line, or adds one, with the section if that is missing. All other lines
 *  stay, in UTF-8. Makes the file and its folder when they are missing. Throws FileError when the
 *  file can't be read, can't be written whole, or when @p value would not be read back as it is, a
 *  NUL included. The file is then as it was, unless only the last flush failed (see WholeFile). */
void SetIniValue(const QString &fileName, const QString &section, const QString &key,
                 const QString &value);

/** The part of a text before its first NUL, or the whole text when it holds none. */
QString TrimAtNul(const QString &text);

} // namespace saldoro
