#include "app/update_handshake.h"

#include "common/date_text.h"
#include "common/number_text.h"
#include "common/version.h"
#include "controls/message_box.h"
#include "platform/ini_file.h"
#include "platform/machine_path.h"
#include "platform/process.h"
#include "platform/whole_file.h"
#include "store/archive_paths.h"
#include "store/archives_root.h"

#include <QDateTime>
#include <QStringList>

namespace saldoro {

using namespace Qt::StringLiterals;

namespace {

QString manifestText()
{
    // The two spellings of the extension are part of the format.
    const QStringList lines = {
        u"[Configuration]"_s,
        u"Autorun = "_s + ProgramName() + u".exe"_s,
        u"Versione = %1     (%2)"_s.arg(OwnVersion().toString(),
                                        FormatData(ProgramFileTime().date())),
        u"Build = "_s + BuildText(OwnVersion()),
        u"KeyReg = "_s + SettingsKey.toString(),
        u"Data = "_s + FormatData(QDate::currentDate()),
        u"Time = "_s + QTime::currentTime().toString(u"HH:mm:ss"_s),
        QString(),
        u"[FILE]"_s,
        u"NUMFILE = 1"_s,
        u"FILE1 = "_s + ProgramName() + u".EXE"_s,
    };
    return lines.join(u"\r\n"_s) + u"\r\n"_s;
}

} // namespace

QVersionNumber OwnVersion()
{
    return QVersionNumber::fromString(VersionText);
}

QString BuildText(const QVersionNumber &version)
{
    constexpr qsizetype revisionDigits = 3;
    const QString padded = u"000"_s + QString::number(version.microVersion());
    return QString::number(version.majorVersion()) + QString::number(version.minorVersion()) +
           padded.last(revisionDigits);
}

bool AsksForManifest(const QString &tail)
{
    return tail.compare(QStringView(u"/INI"), Qt::CaseInsensitive) == 0;
}

void WriteUpdateManifest()
{
    // Also in the place of a manifest in other letter case, which to the suite is the same.
    WholeFile(MachinePath(ProgramName() + u".ini"_s), manifestText().toLocal8Bit()).replace();
}

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
