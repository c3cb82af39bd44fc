#include "app/error_report.h"

#include "common/errors.h"
#include "store/archive_paths.h"
#include "store/archives_root.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>

namespace saldoro {

using namespace Qt::StringLiterals;

namespace {

/** The outermost folder on the way to a file that is not there; empty when all of them are. */
QString missingFolder(const QString &path)
{
    QString missing;
    for (QString folder = QFileInfo(path).path(); !QFileInfo(folder).isDir();) {
        missing = folder;
        folder = QFileInfo(folder).path();
        if (folder == missing)
            break;
    }
    return missing;
}

/** What to look at when a database is not where it should be. */
QString pathHint(const QString &path)
{
    const QString folder = missingFolder(path);
    return (folder.isEmpty()
                ? QString()
                : u"\n\nNon esiste la cartella: "_s + QDir::toNativeSeparators(folder)) +
           u"\n\nLa cartella degli archivi è "_s + ArchivesRootSetting();
}

/** Faults that what is stored gives rise to: values, codes with apostrophes, codes not mapped. */
bool isAboutStoredValues(DatabaseFault fault)
{
    using enum DatabaseFault;
    return fault == NullValue || fault == TypeMismatch || fault == SyntaxError ||
           fault == NoCurrentRecord;
}

/** The command that checks the project of the file @p path. The program is written without its
 *  folder if it is in PATH. "CARTELLA" stands for a project that the path does not tell, as that
 *  of the code map, which belongs to all. */
QString checkCommand(const QString &path)
{
    QString program = u"saldoro-archivio"_s;
    if (QStandardPaths::findExecutable(program).isEmpty())
        program = u'"' + QDir::toNativeSeparators(QCoreApplication::applicationDirPath()) +
                  QDir::separator() + program + u'"';
    const bool isElsewhere =
        path.isEmpty() || path.endsWith(ArchiveFileName::Codes, Qt::CaseInsensitive);
    return program + u" verifica "_s +
           (isElsewhere ? u"CARTELLA"_s : u'"' + QFileInfo(path).path() + u'"');
}

} // namespace

QString ErrorReport(const std::exception &error)
{
    const auto *own = dynamic_cast<const SaldoroError *>(&error);
    if (own == nullptr)
        return u"Si è verificato un errore imprevisto.\nParticolari: "_s +
               QString::fromUtf8(error.what()) +
               u"\n\nAnnotare questo messaggio e rivolgersi all'assistenza."_s;
    QString text = own->message();
    const auto *database = dynamic_cast<const DatabaseError *>(own);
    if (database == nullptr)
        return text;
    if (database->fault() == DatabaseFault::FileMissing)
        text += pathHint(database->detail(Detail::File));
    if (isAboutStoredValues(database->fault()))
        text += u"\n\nPer controllare l'archivio: «Controlla» in Saldoro - Appalti, oppure "
                "eseguire: "_s +
                checkCommand(own->detail(Detail::File));
    return text;
}

} // namespace saldoro
