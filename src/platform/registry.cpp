#include "platform/registry.h"

#include "common/errors.h"
#include "platform/ini_file.h"

#include <QDir>
#include <QStandardPaths>

#ifdef Q_OS_WIN
#include <QSettings>

#include <string>
#include <windows.h>
#else
#include <QRegularExpression>
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

namespace {

/** The type in front of a value. */
QRegularExpressionMatch typeOf(const QString &value)
{
    static const QRegularExpression typeInFront(u"\\AREG_(SZ|EXPAND_SZ|BINARY|DWORD):"_s,
                                                QRegularExpression::CaseInsensitiveOption);
    return typeInFront.match(value);
}

} // namespace

std::optional<QString> ReadRegistryValue(const QString &keyPath, const QString &valueName)
{
    std::optional<QString> value = FindIniValue(RegistryFilePath(), keyPath, valueName);
    if (!value)
        return std::nullopt;
    const auto type = typeOf(*value);
    if (type.hasMatch() && type.captured(1).toUpper() != u"SZ")
        return std::nullopt;
    return TrimAtNul(value->sliced(type.capturedLength()));
}

void SetRegistryValue(const QString &keyPath, const QString &valueName, const QString &text)
{
    if (typeOf(text).hasMatch())
        throw FileError(RegistryFilePath(), u"«%1» non verrebbe riletto com'è."_s.arg(text),
                        u"Scegliere un nome che non comincia con «REG_»."_s);
    SetIniValue(RegistryFilePath(), keyPath, valueName, text);
}

QString RegistryFilePath()
{
    return SettingsFolder() + u"/registro.ini"_s;
}

#endif

} // namespace saldoro
