#include "app/install_settings.h"

#include "app/version.h"
#include "platform/registry.h"

namespace saldoro {

using namespace Qt::StringLiterals;

QString BuildText(int major, int minor, int revision)
{
    constexpr qsizetype revisionDigits = 3;
    const QString padded = u"000"_s + QString::number(revision);
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
    values.ArchiveRoot =
        ReadRegistryValue(SettingsKey.toString(), ArchiveRootValue.toString()).value_or(QString());
}

} // namespace saldoro
