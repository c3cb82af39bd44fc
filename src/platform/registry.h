#pragma once

#include <QString>

#include <optional>

namespace saldoro {

/**
 * Reads a text value of the per-user settings: the value @p valueName of the key @p keyPath below
 * the current user's root.
 * A missing key or value, and a value of another type than plain text, give no value. The text
 * ends at its first NUL. Throws FileError when the settings are there and can't be read.
 *
 * On Windows this is the registry itself. Elsewhere it is the file RegistryFilePath(), an INI
 * file read by the rules of FindIniValue: a key is a section, its values are lines below it.
 *
 *     [Software\Dornvale\ZELT]
 *     drivers=/srv/archivi
 *
 * A text that is to keep blanks at its ends stands in double quotes. A value of another type has
 * the type in front, as in "name=REG_EXPAND_SZ:text" or "name=REG_DWORD:5" (also REG_BINARY);
 * "REG_SZ:" in front states plain text outright.
 */
std::optional<QString> ReadRegistryValue(const QString &keyPath, const QString &valueName);

/** Sets a text value of the per-user settings. Everything else stays as it is. Throws FileError
 *  when the settings can't be read or written, or the text would not be read back as it is. */
void SetRegistryValue(const QString &keyPath, const QString &valueName, const QString &text);

/** The per-user settings file, where there is no registry: "saldoro/registro.ini" in the folder
 *  that XDG_CONFIG_HOME names, or in ~/.config when that is unset, empty or not absolute. The empty
 *  text on Windows. */
QString RegistryFilePath();

} // namespace saldoro
