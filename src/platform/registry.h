#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

namespace saldoro {

/** Types of registry values, numbered as the system numbers them. */
enum class RegistryType : unsigned
{
    String = 1,           ///< plain text
    ExpandableString = 2, ///< text with variables in it
    Binary = 3,
    Number = 4 ///< 32 bits
};

/** Root keys that values are read below. */
enum class RegistryRoot
{
    CurrentUser
};

/**
 * Reads a text value of the per-user settings: the value @p valueName of the key @p keyPath.
 * A missing key or value, and a value of another type than plain text, give no value. The text
 * ends at its first NUL.
 *
 * On Windows this is the registry. Elsewhere it is the file RegistryFilePath(): keys are
 * "[Software\...]" sections, values "name=text"; a type may be given in front of the text as in
 * "name=REG_EXPAND_SZ:text" or "name=REG_DWORD:5". Names ignore letter case.
 */
std::optional<QString> ReadRegistryValue(RegistryRoot root, const QString &keyPath,
                                         const QString &valueName);

/** The per-user settings file, where there is no registry; the empty text on Windows. */
QString RegistryFilePath();

} // namespace saldoro
