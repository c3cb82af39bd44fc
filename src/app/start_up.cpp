#include "app/start_up.h"

#include "app/update_handshake.h"
#include "common/errors.h"
#include "platform/machine_path.h"
#include "store/archive_creation.h"
#include "store/archive_paths.h"
#include "store/archives_root.h"

#include <QFileInfo>

namespace saldoro {

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

QString ProjectCodeFromTail(const QString &tail)
{
    return tail.startsWith(LaunchToken) ? tail.mid(LaunchToken.size()) : DefaultProject.toString();
}

StartUp::StartUp(ProgramValues &values)
    : m_values(values)
{
}

bool StartUp::run(const QString &tail)
{
    InitInstallSettings(m_values);
    if (UpdateIsWaiting(m_values)) {
        RunUpdater(m_values);
        return false;
    }
    m_values.ProjectCode = ProjectCodeFromTail(tail);
    if (!QFileInfo(MachinePath(LedgerPath(m_values))).isFile())
        m_createdLedger = CreateLedgerDatabase(ProjectFolder(m_values));
    return true;
}

} // namespace saldoro
