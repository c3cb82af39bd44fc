#include "app/start_up.h"

#include "app/install_settings.h"
#include "app/update_handshake.h"
#include "platform/machine_path.h"
#include "store/archive_creation.h"
#include "store/archive_paths.h"

#include <QFileInfo>

namespace saldoro {

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
