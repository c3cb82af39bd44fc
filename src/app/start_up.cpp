#include "app/start_up.h"

#include "app/install_settings.h"
#include "app/updater.h"
#include "common/archive_folders.h"
#include "common/number_text.h"
#include "platform/ini_file.h"
#include "platform/machine_path.h"
#include "platform/process.h"
#include "store/ledger.h"

#include <QFileInfo>

#include <utility>

namespace saldoro {

using namespace Qt::StringLiterals;

namespace {

/** What the suite puts in front of the project code when it starts this program. */
constexpr QStringView launchToken = u"TUSMQDE7W";

constexpr QStringView defaultProject = u"00039";

/** A directory look-up: files only, a folder of that name does not count. */
bool fileExists(const QString &archivePath)
{
    return QFileInfo(MachinePath(archivePath)).isFile();
}

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
    if (updateIsWaiting()) {
        RunUpdater(m_values);
        return false;
    }
    m_values.ProjectCode = ProjectCodeFromTail(m_tail);
    createLedgerIfMissing();
    m_showMainForm();
    return true;
}

/** Builds are compared as numbers: 9999 is older than 10167. */
bool StartUp::updateIsWaiting() const
{
    const QString manifest = UpdateFolder(m_values) + ProgramName() + u".INI"_s;
    if (!fileExists(manifest))
        return false;
    const QString build = ReadIniString(manifest, u"Configuration"_s, u"Build"_s);
    return LeadingNumber(build) > LeadingNumber(m_values.ProgramBuild);
}

void StartUp::createLedgerIfMissing()
{
    if (!fileExists(LedgerPath(m_values)))
        m_createdLedger = CreateLedgerDatabase(ProjectFolder(m_values));
}

} // namespace saldoro
