#include "app/install_settings.h"

#include "app/version.h"
#include "common/errors.h"
#include "store/archives_root.h"

namespace saldoro {

using namespace Qt::StringLiterals;

QString BuildText(const ProgramVersion &version)
{
    constexpr qsizetype revisionDigits = 3;
    const QString padded = u"000"_s + QString::number(version.revision);
    return QString::number(version.major) + QString::number(version.minor) +
           padded.last(revisionDigits);
}

ProgramVersion OwnVersion()
{
    return {VersionMajor, VersionMinor, VersionRevision};
}

void InitInstallSettings(ProgramValues &values)
{
    values.ProgramBuild = BuildText(OwnVersion());
    values.ArchiveRoot.clear();
    try {
        values.ArchiveRoot = StoredArchivesRoot().value_or(QString());
    } catch (const FileError &) {
        // The ledger will not be found, which says where the setting is.
    }
}

} // namespace saldoro
