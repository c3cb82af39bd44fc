#include "app/start_up.h"

#include "app/install_settings.h"
#include "app/updater.h"
#include "common/archive_folders.h"
#include "platform/machine_path.h"
#include "store/ledger.h"

#include <QFileInfo>

#include <utility>

namespace saldoro {

using namespace Qt::StringLiterals;

namespace {

/** What the suite puts in front of the project code when it starts this program. */
constexpr QStringView launchToken = u"TUSMQDE7W";

constexpr QStringView defaultProject = u"00039";

} // namespace

QString ProjectCodeFromTail(const QString &tail)
{
    return tail.startsWith(launchToken) ? tail.mid(launchToken.size()) : defaultProject.toString();
}

StartUp::StartUp(ProgramValues &values, QString tail, std::function<void()> showMainForm)
    : m_values(values)
    , m_tail(std::move(tail))
    , m_showMainForm(std::move(showMainForm))
{
}

bool StartUp::run()
{
    InitInstallSettings(m_values);
    if (UpdateIsWaiting(m_values)) {
        RunUpdater(m_values);
        return false;
    }
    m_values.ProjectCode = ProjectCodeFromTail(m_tail);
    createLedgerIfMissing();
    m_showMainForm();
    return true;
}

void StartUp::createLedgerIfMissing()
{
    if (!QFileInfo(MachinePath(LedgerPath(m_values))).isFile())
        m_createdLedger = CreateLedgerDatabase(ProjectFolder(m_values));
}

} // namespace saldoro
