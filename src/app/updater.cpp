#include "app/updater.h"

#include "common/archive_folders.h"
#include "common/message_box.h"
#include "platform/process.h"

namespace saldoro {

void RunUpdater(const ProgramValues &values)
{
    const QString updater = UpdateFolder(values) + QStringLiteral("Updrun2.EXE");
    if (!StartDetached(updater, {QStringLiteral("/F"), ProgramName()}))
        ShowMessage(MessageKind::Critical,
                    QStringLiteral("Il file Updrun2.exe Non è stato trovato"));
}

} // namespace saldoro
