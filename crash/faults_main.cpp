// Lets every call of the system that changes a file fail, or be the last one, and other programs
// and rights get in the program's way; looks at what it reports and leaves: saldoro_faults

#include "bare_file.h"
#include "controls/message_box.h"
#include "failing_calls.h"
#include "fault_trial.h"
#include "platform/machine_path.h"

#include <QCoreApplication>
#include <QDir>

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
        const QString struckCall = FailingCalls::disarm();
        struck += struckCall;
        try {
            trial.check(report);
            if (struckCall.isEmpty()) {
                Require(!report, u"it fails untouched"_s, report);
                return call - 1;
            }
            // The engine may do without a call that only tidies up; the work is whole then.
            if (report)
                RequireReport(report, fault == CallFault::FullDisk
                                          ? QStringList{u"disco"_s, u"scrittura"_s}
                                          : QStringList{QString()});
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
    trial.check(report);
    if (trial.work().databases.isEmpty() && !report)
        return 0;
    RequireReport(report, {u"modific"_s, u"scrittura"_s, u"sola lettura"_s});
    return 1;
}

/** @p path, a machine path, is in someone else's hands: the work must say so, unless it does
 *  without that file. Returns the number of faults. */
int requireTaken(FaultTrial &trial, const Report &report, const QString &path, const QString &part)
{
    trial.check(report);
    if (!report)
        return 0;
    RequireReport(report, {part});
    Require(report->detail(u"File"_s) == path, u"it names another file"_s, report);
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

/** A folder in the place of each document in turn; a work writes all of them or none. */
int takenDocuments(FaultTrial &trial)
{
    const QStringList documents = {u"Q0100"_s, u"Q0198"_s, u"Q0199"_s, u"Q0298"_s, u"Q0299"_s};
    int faults = 0;
    for (const QString &name : documents) {
        trial.renew();
        const QString path = MachinePath(ProjectFolder(trial.values())) + u'/' + name + u".rtf"_s;
        QDir().mkpath(path + u"/occupato"_s);
        const Report report = trial.perform();
        QDir(path).removeRecursively();
        faults += requireTaken(trial, report, path, u"file"_s);
    }
    Require(faults == 0 || faults == documents.size(), u"it writes some of the documents"_s, {});
    return faults;
}

} // namespace

int main(int argc, char *argv[])
{
    // Nothing here depends on a real disk.
    if (QDir(u"/dev/shm"_s).exists())
        qputenv("TMPDIR", "/dev/shm");
    const QCoreApplication application(argc, argv);
    ReplaceMessageBoxes([](MessageKind, const QString &) { return MessageAnswer::Yes; });
    for (const Work &work : AllWorks()) {
        try {
            FaultTrial trial(work);
            const int calls = tryCalls(trial);
            const int folders = readOnlyFolder(trial, 0444) + readOnlyFolder(trial, 0666);
            const int databases = lockedDatabases(trial);
            const int documents = takenDocuments(trial);
            std::printf("faults: %s: %d calls gone wrong, %d folders without rights, %d locked "
                        "databases, %d documents: nothing lost\n",
                        qPrintable(work.name), calls, folders, databases, documents);
        } catch (const std::exception &error) {
            std::printf("faults: FAILED: %s: %s\n", qPrintable(work.name), error.what());
            return 1;
        }
    }
    return 0;
}
