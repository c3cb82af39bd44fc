#include "app/install_settings.h"

#include "app/version.h"
#include "platform/registry.h"

namespace saldoro {

QString BuildText(int major, int minor, int revision)
{
    constexpr qsizetype revisionDigits = 3;
    const QString padded = QStringLiteral("000") + QString::number(revision);
    return QString::number(major) + QString::number(minor) + padded.last(revisionDigits);
}

void InitInstallSettings(ProgramValues &values)
{
    values.ProgramBuild = BuildText(VersionMajor, VersionMinor, VersionRevision);
    values.ArchiveRoot = ReadRegistryValue(RegistryRoot::CurrentUser, SettingsKey.toString(),
                                           QStringLiteral("drivers"))
                             .value_or(QString());
}

} // namespace saldoro
