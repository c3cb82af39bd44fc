// Lets every call of the system that changes a file fail, or be the last one, and other programs
// and rights get in the program's way; looks at what it reports and leaves: saldoro_faults [NAMES
// OF WORKS]

#include "bare_file.h"
#include "controls/message_box.h"
#include "database/database.h"
#include "failing_calls.h"
#include "fault_trial.h"
#include "platform/machine_path.h"

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>

#include <cstdio>
#include <exception>
#include <stdexcept>
#include <sys/stat.h>
#include <unistd.h>

using namespace saldoro;
using namespace Qt::StringLiterals;

namespace {

/** Lets every single call that changes a file go wrong, until the work passes untouched. Adds what
 *  has gone wrong to @p struck; returns the number of faults. */
int tryCalls(FaultTrial &trial, CallFault fault, const char *name, QSet<QString> &struck)
{
    for (int call = 1;; ++call) {
        trial.renew();
        FailingCalls::arm(call, fault);
        const Report report = trial.perform();
        const auto [struckCall, unflushed] = FailingCalls::disarm();
        struck += struckCall;
        try {
            const bool canTidy = (fault == CallFault::Once && !struckCall.startsWith(u"unlink")) ||
                                 fault == CallFault::FullDisk;
            Require(unflushed.isEmpty() || fault == CallFault::Death,
                    u"not flushed: "_s + unflushed.join(u", "_s), report);
            trial.check(report, canTidy);
            if (struckCall.isEmpty()) {
                Require(!report, u"it fails untouched"_s, report);
                return call - 1;
            }
            // The engine may do without a call that only tidies up; the work is whole then.
            if (report) {
                RequireReport(report, {QString()});
                Require(fault != CallFault::FullDisk || report->message().contains(u"spazio"_s),
                        u"it does not tell that the disk is full"_s, report);
            }
        } catch (const std::runtime_error &error) {
            throw std::runtime_error(u"call %1 (%2), %3: "_s.arg(call)
                                         .arg(struckCall, QLatin1StringView(name))
                                         .toStdString() +
                                     error.what());
        }
    }
}

int tryCalls(FaultTrial &trial)
{
    QSet<QString> struck;
    int faults = 0;
    for (const auto &[fault, name] : {std::pair(CallFault::Once, "fails once"),
                                      {CallFault::FromThenOn, "fails for good"},
                                      {CallFault::Death, "dies"},
                                      {CallFault::FullDisk, "full disk"}})
        faults += tryCalls(trial, fault, name, struck);
    // A change is safe once it has been flushed, the journal before it.
    for (const QString &database : trial.work().databases) {
        for (const QString &file : {database, database + u"-journal"_s})
            Require(struck.contains(u"fdatasync "_s + file), file + u" is not flushed"_s, {});
    }
    return faults;
}

/** Gives up the rights of the administrator, to whom nothing is read-only. */
class AsNobody
{
public:
    AsNobody() { becomes(65534); }
    ~AsNobody() { becomes(0); }
    Q_DISABLE_COPY_MOVE(AsNobody)

private:
    void becomes(uid_t user) const
    {
        if (m_isRoot && ::setresuid(user, user, 0) != 0)
            std::terminate();
    }
    bool m_isRoot = ::getuid() == 0;
};

void setRights(const QString &path, mode_t rights)
{
    ::chmod(path.toLocal8Bit().constData(), rights);
}

/** A folder that takes no new file, so no journal either, and files with @p rights. */
int readOnlyFolder(FaultTrial &trial, mode_t rights)
{
    trial.renew();
    const QDir folder(MachinePath(ProjectFolder(trial.values())));
    const QDir tables(MachinePath(trial.values().ArchiveRoot + ArchiveFolders::Tabelle.toString()));
    // Everyone may look at the archive, which lies in a folder of the tests' own.
    for (QString above = folder.path(); above.size() > QDir::tempPath().size();
         above = QFileInfo(above).path())
        setRights(above, 0755);
    for (const QFileInfo &file :
         folder.entryInfoList(QDir::Files) + tables.entryInfoList(QDir::Files))
        setRights(file.filePath(), rights);
    setRights(folder.path(), 0555);
    const Report report = [&] {
        const AsNobody nobody;
        return trial.perform();
    }();
    setRights(folder.path(), 0755);
    for (const QFileInfo &file : folder.entryInfoList(QDir::Files))
        setRights(file.filePath(), 0644);
    trial.check(report, true);
    if (trial.work().databases.isEmpty() && !report)
        return 0;
    RequireReport(report, {u"modific"_s, u"scrittura"_s, u"sola lettura"_s});
    return 1;
}

/** @p path, a machine path, is in someone else's hands: the work must say so, unless it does
 *  without that file. Returns the number of faults. */
int requireTaken(FaultTrial &trial, const Report &report, const QString &path, const QString &part)
{
    trial.check(report, true);
    if (!report)
        return 0;
    RequireReport(report, {part});
    Require(report->detail(Detail::File) == path, u"it names another file"_s, report);
    return 1;
}

/** Each database kept by another program for longer than the program waits. */
int lockedDatabases(FaultTrial &trial)
{
    int faults = 0;
    for (const auto &pathOf : {LedgerPath, ContractPath, CodesPath}) {
        trial.renew();
        const QString path = pathOf(trial.values());
        if (!QFile::exists(MachinePath(path)))
            continue;
        std::optional<BareFile> other(path);
        other->rows(u"BEGIN EXCLUSIVE"_s);
        const Report report = trial.perform();
        other.reset();
        faults += requireTaken(trial, report, MachinePath(path), u"altro programma"_s);
    }
    return faults;
}

/** A folder in the place of each document and CSV file in turn; a work writes all of them or none,
 *  and CSV files together. */
int takenFiles(FaultTrial &trial)
{
    int faults = 0;
    for (const QString &name : trial.files()) {
        trial.renew();
        const QString path = MachinePath(ProjectFolder(trial.values())) + u'/' + name;
        const QString aside = trial.values().ArchiveRoot + u"/scostato"_s;
        const bool wasThere = QFile::rename(path, aside);
        QDir().mkpath(path + u"/occupato"_s);
        const Report report = trial.perform();
        QDir(path).removeRecursively();
        if (wasThere)
            QFile::rename(aside, path);
        Require(trial.work().mark.isEmpty() || trial.isUntouched(), u"other files changed"_s,
                report);
        faults += requireTaken(trial, report, path, u"cartella"_s);
    }
    Require(faults == 0 || faults == trial.files().size(), u"it writes some of the files"_s, {});
    return faults;
}

/** A stored query without end must be ended, in time that a person waits. */
void endlessQuery()
{
    const TestArchive archive;
    const QString path = LedgerPath(archive.values());
    archive.execute(path, u"CREATE VIEW Senza AS WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL "
                          "SELECT i FROM n) SELECT count(*) FROM n"_s);
    QElapsedTimer timer;
    timer.start();
    Report report;
    try {
        (void)Database::open(path).openRecordSet(u"SELECT * FROM Senza"_s).recordCount();
    } catch (const SaldoroError &error) {
        report = error;
    }
    RequireReport(report, {u"non arriva alla fine"_s});
    Require(timer.elapsed() < 30'000, u"it takes too long"_s, report);
}

} // namespace

int main(int argc, char *argv[])
{
    // Nothing here depends on a real disk.
    if (QDir(u"/dev/shm"_s).exists())
        qputenv("TMPDIR", "/dev/shm");
    const QCoreApplication application(argc, argv);
    ReplaceMessageBoxes([](MessageKind, const QString &) { return true; });
    const QStringList named = QCoreApplication::arguments().sliced(1);
    QString name = u"endless query"_s;
    try {
        endlessQuery();
        for (const Work &work : AllWorks()) {
            name = work.name;
            if (!named.isEmpty() && !named.contains(name))
                continue;
            FaultTrial trial(work);
            const int calls = tryCalls(trial);
            const int folders = readOnlyFolder(trial, 0444) + readOnlyFolder(trial, 0666);
            const int databases = lockedDatabases(trial);
            const int files = takenFiles(trial);
            std::printf("faults: %s: %d calls gone wrong, %d folders without rights, %d locked "
                        "databases, %d files: nothing lost\n",
                        qPrintable(name), calls, folders, databases, files);
        }
    } catch (const std::exception &error) {
        std::printf("faults: FAILED: %s: %s\n", qPrintable(name), error.what());
        return 1;
    }
    return 0;
}
