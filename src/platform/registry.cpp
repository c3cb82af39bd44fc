#include "platform/registry.h"

#include "common/errors.h"
#include "platform/ini_file.h"

#include <QDir>
#include <QStandardPaths>

#ifdef Q_OS_WIN
#include <QSettings>

#include <string>
#include <windows.h>
#endif

namespace saldoro {

using namespace Qt::StringLiterals;

QString SettingsFolder()
{
    QString folder = QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation);
    if (!QDir::isAbsolutePath(folder)) // the toolkit takes XDG_CONFIG_HOME as it is
        folder = QDir::homePath() + u"/.config"_s;
    return folder + u"/saldoro"_s;
}

QString RegistryKeyPlace(const QString &keyPath)
{
    const QString file = RegistryFilePath();
    return file.isEmpty() ? u"HKEY_CURRENT_USER\\"_s + keyPath : file;
}

#ifdef Q_OS_WIN

std::optional<QString> ReadRegistryValue(const QString &keyPath, const QString &valueName)
{
    const std::wstring key = keyPath.toStdWString();
    const std::wstring name = valueName.toStdWString();
    const auto read = [&](wchar_t *text, DWORD &size) {
        // Plain text only, not one with variables to expand.
        const LSTATUS status = RegGetValueW(HKEY_CURRENT_USER, key.c_str(), name.c_str(),
                                            RRF_RT_REG_SZ | RRF_NOEXPAND, nullptr, text, &size);
        if (status != ERROR_SUCCESS && status != ERROR_FILE_NOT_FOUND &&
            status != ERROR_UNSUPPORTED_TYPE)
            throw FileError(RegistryKeyPlace(keyPath), u"L'impostazione non può essere letta."_s,
                            u"Controllare i permessi dell'utente sul registro."_s);
        return status == ERROR_SUCCESS;
    };
    DWORD size = 0; // in bytes
    if (!read(nullptr, size))
        return std::nullopt;
    std::wstring text(size / sizeof(wchar_t), L'\0');
    if (!read(text.data(), size))
        return std::nullopt;
    return TrimAtNul(QString::fromStdWString(text));
}

void SetRegistryValue(const QString &keyPath, const QString &valueName, const QString &text)
{
    QSettings settings(RegistryKeyPlace(keyPath), QSettings::NativeFormat);
    settings.setValue(valueName, text);
    settings.sync();
    if (settings.status() != QSettings::NoError)
        throw FileError(settings.fileName(), u"L'impostazione non può essere scritta."_s,
                        u"Controllare i permessi dell'utente sul registro."_s);
}

QString RegistryFilePath()
{
    return {};
}

#else

std::optional<QString> ReadRegistryValue(const QString &keyPath, const QString &valueName)
{
    std::optional<QString> value = FindIniValue(RegistryFilePath(), keyPath, valueName);
    if (value)
        value = TrimAtNul(*value);
    return value;
}

void SetRegistryValue(const QString &keyPath, const QString &valueName, const QString &text)
{
    SetIniValue(RegistryFilePath(), keyPath, valueName, text);
}

QString RegistryFilePath()
{
    return SettingsFolder() + u"/registro.ini"_s;
}

#endif

} // namespace saldoro
