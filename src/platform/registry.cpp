#include "platform/registry.h"

#include "platform/ini_file.h"
#include "platform/legacy_text.h"

#ifdef Q_OS_WIN
#include <QByteArray>
#include <QSettings>

#include <windows.h>
#else
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QSaveFile>
#endif

namespace saldoro {

using namespace Qt::StringLiterals;

#ifdef Q_OS_WIN

namespace {

/** Type and size are asked for first, so that only plain text is ever fetched. A key that could
 *  not be opened makes the query itself fail. */
std::optional<QString> queryRegistryValue(HKEY openKey, const QByteArray &valueName)
{
    DWORD type = 0;
    DWORD size = 0;
    if (RegQueryValueExA(openKey, valueName.constData(), nullptr, &type, nullptr, &size) !=
            ERROR_SUCCESS ||
        type != REG_SZ)
        return std::nullopt;
    QByteArray buffer(static_cast<qsizetype>(size), ' ');
    if (RegQueryValueExA(openKey, valueName.constData(), nullptr, &type,
                         reinterpret_cast<BYTE *>(buffer.data()), &size) != ERROR_SUCCESS)
        return std::nullopt;
    return TrimAtNul(QString::fromLocal8Bit(buffer));
}

} // namespace

std::optional<QString> ReadRegistryValue(const QString &keyPath, const QString &valueName)
{
    HKEY key = nullptr;
    RegOpenKeyA(HKEY_CURRENT_USER, keyPath.toLocal8Bit().constData(), &key);
    auto value = queryRegistryValue(key, valueName.toLocal8Bit());
    RegCloseKey(key);
    return value;
}

bool AddRegistryValue(const QString &keyPath, const QString &valueName, const QString &text)
{
    QSettings settings(u"HKEY_CURRENT_USER\\"_s + keyPath, QSettings::NativeFormat);
    settings.setValue(valueName, text);
    settings.sync();
    return settings.status() == QSettings::NoError;
}

QString RegistryFilePath()
{
    return {};
}

#else

std::optional<QString> ReadRegistryValue(const QString &keyPath, const QString &valueName)
{
    std::optional<QString> value = FindIniValue(RegistryFilePath(), keyPath, valueName);
    if (!value)
        return std::nullopt;
    for (const QStringView otherType : {u"REG_EXPAND_SZ:", u"REG_BINARY:", u"REG_DWORD:"}) {
        if (value->startsWith(otherType, Qt::CaseInsensitive))
            return std::nullopt;
    }
    constexpr QStringView plainText = u"REG_SZ:";
    if (value->startsWith(plainText, Qt::CaseInsensitive))
        value->remove(0, plainText.size());
    return TrimAtNul(*value);
}

bool AddRegistryValue(const QString &keyPath, const QString &valueName, const QString &text)
{
    const QString path = RegistryFilePath();
    QFile present(path);
    QString content;
    if (present.open(QIODevice::ReadOnly))
        content = TextOfStoredBytes(present.readAll());
    if (!content.isEmpty() && !content.endsWith(u'\n'))
        content += u'\n';
    // Of two sections of the same name only the first is looked at.
    const QRegularExpression section(u"^[ \\t]*\\[[ \\t]*"_s + QRegularExpression::escape(keyPath) +
                                         u"[ \\t]*\\][^\\r\\n]*[\\r\\n]+"_s,
                                     QRegularExpression::MultilineOption |
                                         QRegularExpression::CaseInsensitiveOption);
    qsizetype place = section.match(content).capturedEnd();
    if (place < 0) {
        content += u'[' + keyPath + u"]\n"_s;
        place = content.size();
    }
    content.insert(place, valueName + u"=\""_s + text + u"\"\n"_s);
    QSaveFile file(path);
    return QDir().mkpath(QFileInfo(path).path()) && file.open(QIODevice::WriteOnly) &&
           file.write(content.toUtf8()) >= 0 && file.commit();
}

QString RegistryFilePath()
{
    QString folder = qEnvironmentVariable("XDG_CONFIG_HOME");
    if (!QDir::isAbsolutePath(folder))
        folder = QDir::homePath() + u"/.config"_s;
    return folder + u"/saldoro/registro.ini"_s;
}

#endif

} // namespace saldoro
