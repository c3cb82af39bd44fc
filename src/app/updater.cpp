#include "app/updater.h"

#include "common/archive_folders.h"
#include "common/message_box.h"
#include "platform/process.h"

namespace saldoro {

using namespace Qt::StringLiterals;

void RunUpdater(const ProgramValues &values)
{
    const QString updater = UpdateFolder(values) + u"Updrun2.EXE"_s;
    if (!StartDetached(updater, {u"/F"_s, ProgramName()}))
        ShowMessage(MessageKind::Critical, u"Il file Updrun2.exe Non è stato trovato"_s);
}

} // namespace saldoro
