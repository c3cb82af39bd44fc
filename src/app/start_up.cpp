#include "app/start_up.h"

#include "app/update_handshake.h"
#include "common/errors.h"
#include "platform/machine_path.h"
#include "store/archive_creation.h"
#include "store/archive_paths.h"
#include "store/archives_root.h"

namespace saldoro {

void InitInstallSettings(ProgramValues &values)
{
    values.ProgramBuild = BuildText(OwnVersion());
    values.ArchiveRoot.clear();
    try {
        values.ArchiveRoot = StoredArchivesRoot().value_or(QString());
    } catch (const FileError &) {
        // The ledger is then not found, and that error tells where the setting is.
    }
}

QString ProjectCodeFromTail(const QString &tail)
{
    return tail.startsWith(LaunchToken) ? tail.mid(LaunchToken.size()) : DefaultProject.toString();
}

bool StartUp(ProgramValues &values, const QString &tail, std::optional<Database> &createdLedger)
{
    InitInstallSettings(values);
    if (UpdateIsWaiting(values)) {
        RunUpdater(values);
        return false;
    }
    values.ProjectCode = ProjectCodeFromTail(tail);
    // Something else of its name, such as a link to a disk that is away, is told when it is read.
    if (!IsTaken(MachinePath(LedgerPath(values))))
        createdLedger = CreateLedgerDatabase(ProjectFolder(values));
    return true;
}

} // namespace saldoro
