#include "archive_setting.h"

#include "platform/registry.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSettings>

namespace saldoro {

namespace {
const QString suiteKey = QStringLiteral("Software\\Dornvale\\ZELT");
const QString rootValue = QStringLiteral("drivers");
} // namespace

ArchiveSetting::ArchiveSetting(const QString &root)
    : m_before(
          ReadRegistryValue(RegistryRoot::CurrentUser, suiteKey, rootValue).value_or(QString()))
{
    write(root);
}

ArchiveSetting::~ArchiveSetting()
{
    write(m_before);
}

void ArchiveSetting::write(const QString &root)
{
    const QString path = RegistryFilePath();
    if (path.isEmpty()) { // there is a registry
        QSettings(QStringLiteral("HKEY_CURRENT_USER\\") + suiteKey, QSettings::NativeFormat)
            .setValue(rootValue, root);
        return;
    }
    QDir().mkpath(QFileInfo(path).path());
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        qFatal("settings file not writable");
    file.write(QStringLiteral("[%1]\n%2=\"%3\"\n").arg(suiteKey, rootValue, root).toUtf8());
}

} // namespace saldoro
