#pragma once

#include "platform/registry.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSettings>

namespace saldoro {

/** The archives root in the per-user settings; what was set before comes back at the end. Tests run
 *  with XDG_CONFIG_HOME at a folder of their own. */
class ArchiveSetting
{
public:
    explicit ArchiveSetting(const QString &root)
        : m_before(ReadRegistryValue(m_key, m_name).value_or(QString()))
    {
        write(root);
    }
    ~ArchiveSetting() { write(m_before); }
    Q_DISABLE_COPY_MOVE(ArchiveSetting)

private:
    void write(const QString &root) const
    {
        const QString path = RegistryFilePath();
        if (path.isEmpty()) { // there is a registry
            QSettings(QStringLiteral("HKEY_CURRENT_USER\\") + m_key, QSettings::NativeFormat)
                .setValue(m_name, root);
            return;
        }
        QDir().mkpath(QFileInfo(path).path());
        QFile file(path);
        if (!file.open(QIODevice::WriteOnly))
            qFatal("settings file not writable");
        file.write(QStringLiteral("[%1]\n%2=\"%3\"\n").arg(m_key, m_name, root).toUtf8());
    }

    const QString m_key = QStringLiteral("Software\\Dornvale\\ZELT");
    const QString m_name = QStringLiteral("drivers");
    const QString m_before;
};

} // namespace saldoro
