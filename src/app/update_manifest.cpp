#include "app/update_manifest.h"

#include "app/application.h"
#include "app/error_report.h"
#include "app/install_settings.h"
#include "common/date_text.h"
#include "common/errors.h"
#include "platform/console.h"
#include "platform/machine_path.h"
#include "platform/process.h"

#include <QDateTime>
#include <QFileInfo>
#include <QSaveFile>
#include <QStringList>

namespace saldoro {

using namespace Qt::StringLiterals;

namespace {

ManifestFacts factsOfThisProgram()
{
    const ProgramVersion version = OwnVersion();
    return {ProgramName(),
            version.major,
            version.minor,
            version.revision,
            ProgramFileTime().date(),
            QDate::currentDate(),
            QTime::currentTime()};
}

} // namespace

QString ManifestText(const ManifestFacts &facts)
{
    const QString version = u"%1.%2.%3"_s.arg(facts.major).arg(facts.minor).arg(facts.revision);
    // The two spellings of the extension are part of the format.
    const QStringList lines = {
        u"[Configuration]"_s,
        u"Autorun = "_s + facts.programName + u".exe"_s,
        u"Versione = "_s + version + u"     ("_s + FormatData(facts.programDate) + u')',
        u"Build = "_s + BuildText(facts.major, facts.minor, facts.revision),
        u"KeyReg = "_s + SettingsKey.toString(),
        u"Data = "_s + FormatData(facts.today),
        u"Time = "_s + facts.now.toString(u"HH:mm:ss"_s),
        QString(),
        u"[FILE]"_s,
        u"NUMFILE = 1"_s,
        u"FILE1 = "_s + facts.programName + u".EXE"_s,
    };
    return lines.join(u"\r\n"_s) + u"\r\n"_s;
}

void WriteUpdateManifest()
{
    // A manifest of that name in other letter case is the same file to the suite.
    QSaveFile file(MachinePath(ProgramName() + u".ini"_s));
    const bool written = file.open(QIODevice::WriteOnly) &&
                         file.write(ManifestText(factsOfThisProgram()).toLocal8Bit()) >= 0 &&
                         file.flush() && // committing alone would not notice a full disk
                         file.commit();
    if (!written)
        throw FileError(QFileInfo(file.fileName()).absoluteFilePath(),
                        u"Non è possibile scrivere il file di aggiornamento."_s,
                        u"Avviare il programma da una cartella in cui si può "
                        "scrivere."_s);
}

bool AsksForManifest(const QString &tail)
{
    return tail.compare(QStringView(u"/INI"), Qt::CaseInsensitive) == 0;
}

int RunForManifest()
{
    try {
        WriteUpdateManifest();
    } catch (const std::exception &error) {
        PrintError(ErrorReport(error) + u'\n');
        return Application::ErrorStatus;
    }
    return 0;
}

} // namespace saldoro
