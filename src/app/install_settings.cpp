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

ProgramVersion OwnVersion()
{
    return VersionResource().value_or(ProgramVersion{VersionMajor, VersionMinor, VersionRevision});
}

void InitInstallSettings(ProgramValues &values)
{
    const ProgramVersion version = OwnVersion();
    values.ProgramBuild = BuildText(version.major, version.minor, version.revision);
    values.ArchiveRoot = ReadRegistryValue(RegistryRoot::CurrentUser, SettingsKey.toString(),
                                           QStringLiteral("drivers"))
                             .value_or(QString());
}

} // namespace saldoro
