#pragma once

#include <QString>

namespace saldoro {

/**
 * The value of a key of a section of an INI file, or the empty text when the file, the section or
 * the key is missing. Section and key ignore letter case; blanks around "=" and around the value
 * do not count; one pair of quotes around the value is dropped. At most 254 characters are read,
 * a NUL ends the value, trailing blanks are lost.
 *
 * @param fileName archive path or path of the machine
 */
QString ReadIniString(const QString &fileName, const QString &section, const QString &key);

/** The part of a text before its first NUL, or the whole text when it holds none. */
QString TrimAtNul(const QString &text);

} // namespace saldoro
