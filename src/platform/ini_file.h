#pragma once

#include <QString>

#include <optional>

namespace saldoro {

/**
 * The value of a key of a section of an INI file, or the empty text when the file, the section or
 * the key is missing. At most 254 characters are read, a NUL ends the value, trailing
 * blanks are lost. Nothing is thrown: a file that can't be read counts as missing.
 *
 * @param fileName archive path or path of the machine
 */
QString ReadIniString(const QString &fileName, const QString &section, const QString &key);

/**
 * The same value whole, without limit and NUL rule; no value when file, section or key is missing.
 * Throws FileError when the file is there and can't be read.
 *
 * The same rules hold on every system. Section and key ignore letter case; of sections and keys
 * that occur twice the first wins. Blanks around section, key, "=" and value do not count; one
 * pair of quotes (" or ') around the value is dropped and keeps the blanks within. A line that
 * begins with ";" is a comment. Text is UTF-8 (or what a byte order mark says); a file that is
 * not valid UTF-8 is read as Windows-1252. Lines end with CR LF, LF or CR.
 */
std::optional<QString> FindIniValue(const QString &fileName, const QString &section,
                                    const QString &key);

/** Sets a key, in the place of the line that has been its value, and adds the section if need be;
 *  all other lines stay, in UTF-8. The file, and its folder, are made when there are none. Throws
 *  FileError, with the file as it was, when it is there and can't be read, when it can't be written
 *  whole, or when @p value would not be read back as it is. */
void SetIniValue(const QString &fileName, const QString &section, const QString &key,
                 const QString &value);

/** The part of a text before its first NUL, or the whole text when it holds none. */
QString TrimAtNul(const QString &text);

} // namespace saldoro
