#pragma once

#include <QString>

#include <optional>

namespace saldoro {

/**
 * Reads a text value of the per-user settings: @p valueName of the key @p keyPath below the current
 * user's root. A missing key or value gives none, and so does a value of the registry that is of
 * another type than plain text. The text ends at its first NUL. Throws FileError when the settings
 * are there and can't be read.
 *
 * On Windows the settings are the registry. Elsewhere they are the file RegistryFilePath(), an INI
 * file read by the rules of FindIniValue: a key is a section, its values are lines below it.
 *
 *     [Software\Dornvale\ZELT]
 *     drivers=/srv/archivi
 *
 * Double quotes around a text keep blanks at its ends.
 */
std::optional<QString> ReadRegistryValue(const QString &keyPath, const QString &valueName);

/** Sets a text value of the per-user settings; all others stay as they are. Throws FileError when
 *  the settings can't be read or written. Where they are a file, also when the text would not be
 *  read back as it is. */
void SetRegistryValue(const QString &keyPath, const QString &valueName, const QString &text);

/** The folder of this program's own files among the user's settings: "saldoro" in the folder that
 *  XDG_CONFIG_HOME names, or in ~/.config when that is unset, empty or not absolute; on Windows in
 *  the user's local application data. It may be missing. */
QString SettingsFolder();

/** The file of the per-user settings, "registro.ini" in the SettingsFolder(). Empty on Windows,
 *  which has a registry. */
QString RegistryFilePath();

/** Where a person finds the values of a key: the key below the root of the current user, or the
 *  file. */
QString RegistryKeyPlace(const QString &keyPath);

} // namespace saldoro
