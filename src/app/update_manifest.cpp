#include "app/update_manifest.h"

#include "app/install_settings.h"
#include "common/date_text.h"
#include "common/errors.h"
#include "platform/machine_path.h"
#include "platform/process.h"

#include <QDateTime>
#include <QFileInfo>
#include <QSaveFile>
#include <QStringList>

namespace saldoro {

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
    const QString version =
        QStringLiteral("%1.%2.%3").arg(facts.major).arg(facts.minor).arg(facts.revision);
    // The two spellings of the extension are part of the format.
    const QStringList lines = {
        QStringLiteral("[Configuration]"),
        QStringLiteral("Autorun = ") + facts.programName + QStringLiteral(".exe"),
        QStringLiteral("Versione = ") + version + QStringLiteral("     (") +
            FormatData(facts.programDate) + u')',
        QStringLiteral("Build = ") + BuildText(facts.major, facts.minor, facts.revision),
        QStringLiteral("KeyReg = ") + SettingsKey.toString(),
        QStringLiteral("Data = ") + FormatData(facts.today),
        QStringLiteral("Time = ") + facts.now.toString(QStringLiteral("HH:mm:ss")),
        QString(),
        QStringLiteral("[FILE]"),
        QStringLiteral("NUMFILE = 1"),
        QStringLiteral("FILE1 = ") + facts.programName + QStringLiteral(".EXE"),
    };
    return lines.join(QStringLiteral("\r\n")) + QStringLiteral("\r\n");
}

void WriteUpdateManifest()
{
    // A manifest of that name in other letter case is the same file to the suite.
    QSaveFile file(MachinePath(ProgramName() + QStringLiteral(".ini")));
    const bool written = file.open(QIODevice::WriteOnly) &&
                         file.write(ManifestText(factsOfThisProgram()).toLocal8Bit()) >= 0 &&
                         file.flush() && // committing alone would not notice a full disk
                         file.commit();
    if (!written)
        throw FileError(QFileInfo(file.fileName()).absoluteFilePath(),
                        QStringLiteral("Non è possibile scrivere il file di aggiornamento."),
                        QStringLiteral("Avviare il programma da una cartella in cui si può "
                                       "scrivere."));
}

} // namespace saldoro
