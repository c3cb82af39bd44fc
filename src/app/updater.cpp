#include "app/updater.h"

#include "common/archive_folders.h"
#include "common/message_box.h"
#include "common/number_text.h"
#include "platform/ini_file.h"
#include "platform/process.h"

namespace saldoro {

using namespace Qt::StringLiterals;

bool UpdateIsWaiting(const ProgramValues &values)
{
    const QString manifest = UpdateFolder(values) + ProgramName() + u".INI"_s;
    const QString build = ReadIniString(manifest, u"Configuration"_s, u"Build"_s);
    return LeadingNumber(build) > LeadingNumber(values.ProgramBuild);
}

void RunUpdater(const ProgramValues &values)
{
    const QString updater = UpdateFolder(values) + u"Updrun2.EXE"_s;
    if (!StartDetached(updater, {u"/F"_s, ProgramName()}))
        ShowMessage(MessageKind::Critical, u"Il file Updrun2.exe Non è stato trovato"_s);
}

} // namespace saldoro
