#include "bare_file.h"
#include "failing_calls.h"
#include "faults.h"
#include "platform/machine_path.h"

#include <QDir>
#include <QFileInfo>

#include <cstdio>
#include <optional>
#include <stdexcept>
#include <sys/stat.h>
#include <unistd.h>

namespace saldoro {

using namespace Qt::StringLiterals;

namespace {

QDir projectFolder(const FaultTrial &trial)
{
    return QDir(MachinePath(ProjectFolder(trial.values())));
}

/** Gives up the rights of the administrator, to whom nothing is read-only. */
void becomeNobody()
{
    constexpr uid_t nobody = 65534;
    if (::getuid() == 0 && (::setgid(nobody) != 0 || ::setuid(nobody) != 0))
        ::_exit(4);
}

void setRights(const QString &path, mode_t rights)
{
    ::chmod(path.toLocal8Bit().constData(), rights);
}

/** A folder that takes no new file, so no journal either, and files with @p rights. */
int readOnlyFolder(FaultTrial &trial, mode_t rights)
{
    trial.renew();
    const QDir folder = projectFolder(trial);
    // Everyone may look at the archive, which lies in a folder of the tests' own.
    for (QString above = folder.path(); above.size() > QDir::tempPath().size();
         above = QFileInfo(above).path())
        setRights(above, 0755);
    const QDir tables(MachinePath(trial.values().ArchiveRoot + ArchiveFolders::Tabelle.toString()));
    for (const QDir &dir : {folder, tables}) {
        for (const QFileInfo &file : dir.entryInfoList(QDir::Files))
            setRights(file.filePath(), rights);
    }
    setRights(folder.path(), 0555);
    const Report report = trial.performApart(becomeNobody).value();
    setRights(folder.path(), 0755);
    for (const QFileInfo &file : folder.entryInfoList(QDir::Files))
        setRights(file.filePath(), 0644);
    trial.check(report);
    if (trial.work().databases.isEmpty() && report.text.isEmpty())
        return 0;
    RequireReport(report, {u"modific"_s, u"scrittura"_s, u"sola lettura"_s});
    return 1;
}

/** Each database kept by another program for longer than the program waits. */
int lockedDatabase(FaultTrial &trial)
{
    int faults = 0;
    for (const QString &path :
         {LedgerPath(trial.values()), ContractPath(trial.values()), CodesPath(trial.values())}) {
        trial.renew();
        if (!ArchivePathExists(path))
            continue;
        std::optional<BareFile> other(path);
        other->rows(u"BEGIN EXCLUSIVE"_s);
        FailingCalls::takeWaited();
        const Report report = trial.perform();
        const qint64 waited = FailingCalls::takeWaited();
        other.reset();
        trial.check(report);
        if (report.text.isEmpty()) // this work does without that database
            continue;
        RequireReport(report, {u"altro programma"_s});
        Require(report.file == MachinePath(path), u"it names another file"_s, report);
        Require(waited >= Database::LockWaitMilliseconds * 9 / 10 &&
                    waited <= Database::LockWaitMilliseconds,
                u"it waited for %1 ms"_s.arg(waited), report);
        ++faults;
    }
    return faults;
}

/** A folder in the place of each document in turn. */
int unwritableDocument(FaultTrial &trial)
{
    int faults = 0;
    for (const QString &name : {u"Q0100"_s, u"Q0198"_s, u"Q0199"_s, u"Q0298"_s, u"Q0299"_s}) {
        trial.renew();
        const QString path = projectFolder(trial).filePath(name + u".rtf"_s);
        if (!QDir().mkpath(path + u"/occupato"_s))
            throw std::runtime_error("the folder can't be made");
        const Report report = trial.perform();
        QDir(path).removeRecursively();
        trial.check(report);
        if (report.text.isEmpty()) { // this work writes no documents
            Require(faults == 0, u"it writes some of the documents only"_s, report);
            return 0;
        }
        RequireReport(report, {u"documento"_s});
        Require(report.file == path, u"it names another file"_s, report);
        ++faults;
    }
    return faults;
}

} // namespace

int TrySystemFaults(FaultTrial &trial)
{
    const int fixed = readOnlyFolder(trial, 0444);
    const int changeable = readOnlyFolder(trial, 0666);
    const int locked = lockedDatabase(trial);
    const int documents = unwritableDocument(trial);
    std::printf("faults: %s: %d folders without rights, %d locked databases, %d documents\n",
                qPrintable(trial.work().name), fixed + changeable, locked, documents);
    return fixed + changeable + locked + documents;
}

} // namespace saldoro
