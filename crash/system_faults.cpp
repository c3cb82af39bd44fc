#include "fault_file_layer.h"
#include "fault_trial.h"
#include "platform/machine_path.h"
#include "storage_faults.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <csignal>
#include <cstdio>
#include <functional>
#include <memory>
#include <sched.h>
#include <sqlite3.h>
#include <stdexcept>
#include <sys/mount.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/statvfs.h>
#include <sys/wait.h>
#include <unistd.h>

namespace saldoro {

using namespace Qt::StringLiterals;

namespace {

/** Runs @p work in a process of its own and gives its report: what that process does to itself does
 *  not come back. */
Report inChild(const std::function<Report()> &work)
{
    int ends[2];
    if (::pipe(ends) != 0)
        throw std::runtime_error("no pipe");
    const pid_t pid = ::fork();
    if (pid == 0) {
        ::close(ends[0]);
        const Report report = work();
        const QByteArray text = (QStringList{report.isDatabaseError ? u"1"_s : u"0"_s, report.file,
                                             report.problem, report.text})
                                    .join(QChar(u'\0'))
                                    .toUtf8();
        ::_exit(::write(ends[1], text.constData(), size_t(text.size())) == text.size() ? 0 : 1);
    }
    ::close(ends[1]);
    QFile pipe;
    if (!pipe.open(ends[0], QIODevice::ReadOnly, QFileDevice::AutoCloseHandle))
        throw std::runtime_error("no pipe");
    const QStringList parts = QString::fromUtf8(pipe.readAll()).split(QChar(u'\0'));
    int status = 0;
    ::waitpid(pid, &status, 0);
    if (status != 0 || parts.size() != 4)
        throw std::runtime_error("the process under trial died");
    return {parts[3], parts[1], parts[2], parts[0] == "1"_L1};
}

QString projectFolder(const FaultTrial &trial)
{
    return MachinePath(ProjectFolder(trial.values()));
}

/** The report must hold @p part, and the file it names must be one of the project's. */
void requireReport(const Report &report, const QStringList &parts)
{
    Require(!report.text.isEmpty() && report.text.contains(report.file), u"no report"_s, report);
    Require(report.file.endsWith(u".mdb") || report.file.endsWith(u".rtf"),
            u"the report names no file"_s, report);
    bool any = false;
    for (const QString &part : parts)
        any = any || report.problem.contains(part);
    Require(any, u"the report says something else than "_s + parts.join(u" or "), report);
}

/** Changes the size of the disk. */
bool remount(const QByteArray &folder, unsigned long kibibytes)
{
    const QByteArray size = "size=" + QByteArray::number(qulonglong(kibibytes)) + "k";
    return ::mount("tmpfs", folder.constData(), "tmpfs", MS_REMOUNT, size.constData()) == 0;
}

/** Does the work, and looks at it, on a disk of the project's own with little room left. Answers
 *  "unmountable" where no disk can be made. */
Report onSmallDisk(FaultTrial &trial, unsigned long kibibytesLeft)
{
    const QByteArray folder = projectFolder(trial).toLocal8Bit();
    if (::unshare(CLONE_NEWNS) != 0 ||
        ::mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) != 0 ||
        ::mount("tmpfs", folder.constData(), "tmpfs", 0, "size=16m") != 0)
        return {u"unmountable"_s, {}, {}, false};
    trial.renew();
    struct statvfs disk
    {
    };
    ::statvfs(folder.constData(), &disk);
    const unsigned long used = (disk.f_blocks - disk.f_bfree) * (disk.f_bsize / 1024);
    if (!remount(folder, used + kibibytesLeft))
        return {u"unmountable"_s, {}, {}, false};
    Report report = trial.perform();
    remount(folder, 16384);
    try {
        trial.check(report);
    } catch (const std::runtime_error &error) {
        return {QString::fromUtf8(error.what()), {}, u"wrong"_s, false};
    }
    return report;
}

/** The count of a fault that can't be made here, or that the work does not meet. */
constexpr int LeftOut = -1;

/** A disk with room for any number of pages from none on. */
int fullDisk(FaultTrial &trial)
{
    int faults = 0;
    for (unsigned long left = 0;; left += 4) {
        const Report report = inChild([&] { return onSmallDisk(trial, left); });
        if (report.text == "unmountable"_L1) {
            Require(faults == 0, u"a disk could be made before, and no longer"_s, report);
            return LeftOut;
        }
        if (report.text.isEmpty())
            return faults;
        requireReport(report, {u"disco"_s, u"scrittura"_s});
        ++faults;
    }
}

/** The same with a limit on the size of files, which needs no right to mount a disk. */
int limitedFiles(FaultTrial &trial)
{
    int faults = 0;
    for (rlim_t limit = 0;; limit += 512) {
        trial.renew();
        const Report report = inChild([&trial, limit] {
            ::signal(SIGXFSZ, SIG_IGN);
            const rlimit size{limit, limit};
            ::setrlimit(RLIMIT_FSIZE, &size);
            return trial.perform();
        });
        trial.check(report);
        if (report.text.isEmpty())
            return faults;
        requireReport(report, {u"disco"_s, u"scrittura"_s});
        ++faults;
    }
}

/** Gives up the rights of the administrator, to whom nothing is read-only. */
void becomeNobody()
{
    constexpr uid_t nobody = 65534;
    if (::getuid() == 0 && (::setgid(nobody) != 0 || ::setuid(nobody) != 0))
        ::_exit(4);
}

enum class Files
{
    Fixed,
    Changeable
};

/** A folder that takes no new file, so no journal either, with files that may still be written. */
int readOnlyFolder(FaultTrial &trial, Files files)
{
    trial.renew();
    const QString folder = projectFolder(trial);
    // Everyone may look at the archive, which lies in a folder of the tests' own.
    for (QString above = folder; above.size() > QDir::tempPath().size();
         above = QFileInfo(above).path())
        ::chmod(above.toLocal8Bit().constData(), 0755);
    const QDir tables(MachinePath(trial.values().ArchiveRoot + ArchiveFolders::Tabelle.toString()));
    for (const QDir &dir : {QDir(folder), tables}) {
        for (const QFileInfo &file : dir.entryInfoList(QDir::Files))
            ::chmod(file.filePath().toLocal8Bit().constData(), files == Files::Fixed ? 0444 : 0666);
    }
    ::chmod(folder.toLocal8Bit().constData(), 0555);
    const Report report = inChild([&trial] {
        becomeNobody();
        return trial.perform();
    });
    ::chmod(folder.toLocal8Bit().constData(), 0755);
    for (const QFileInfo &file : QDir(folder).entryInfoList(QDir::Files))
        ::chmod(file.filePath().toLocal8Bit().constData(), 0644);
    trial.check(report);
    requireReport(report, {u"modific"_s, u"scrittura"_s, u"sola lettura"_s});
    return 1;
}

/** Keeps a database for itself as long as it lives, as another program may. */
class Locker
{
public:
    explicit Locker(const QString &archivePath)
    {
        const QByteArray path = MachinePath(archivePath).toUtf8();
        if (sqlite3_open(path.constData(), &m_file) != SQLITE_OK ||
            sqlite3_exec(m_file, "BEGIN EXCLUSIVE", nullptr, nullptr, nullptr) != SQLITE_OK)
            throw std::runtime_error("the database can't be locked");
    }
    ~Locker() { sqlite3_close(m_file); }
    Q_DISABLE_COPY_MOVE(Locker)

private:
    sqlite3 *m_file = nullptr;
};

int lockedDatabase(FaultTrial &trial)
{
    int faults = 0;
    trial.renew();
    for (const QString &path :
         {LedgerPath(trial.values()), ContractPath(trial.values()), CodesPath(trial.values())}) {
        trial.renew();
        auto locker = std::make_unique<Locker>(path);
        FaultFileLayer::takeWaited();
        const Report report = trial.perform();
        const qint64 waited = FaultFileLayer::takeWaited();
        locker.reset();
        trial.check(report);
        if (report.text.isEmpty()) // this work does without that database
            continue;
        requireReport(report, {u"altro programma"_s});
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
        const QString path = projectFolder(trial) + u'/' + name + u".rtf"_s;
        if (!QDir().mkpath(path + u"/occupato"_s))
            throw std::runtime_error("the folder can't be made");
        const Report report = trial.perform();
        QDir(path).removeRecursively();
        trial.check(report);
        if (report.text.isEmpty()) { // this work writes no documents
            Require(faults == 0, u"it writes some of the documents only"_s, report);
            return LeftOut;
        }
        requireReport(report, {u"documento"_s});
        Require(report.file == path, u"it names another file"_s, report);
        ++faults;
    }
    return faults;
}

/** Prints how often a fault was tried; answers that number. */
int report(const FaultTrial &trial, const char *name, int count)
{
    const bool isTried = count != LeftOut;
    if (count == 0)
        throw std::runtime_error("no fault came of it");
    std::printf("faults: %s: %s, %s\n", qPrintable(trial.name()), name,
                isTried ? qPrintable(QString::number(count) + u" times"_s) : "left out");
    return isTried ? count : 0;
}

} // namespace

int TrySystemFaults()
{
    const QList<std::pair<const char *, std::function<int(FaultTrial &)>>> faults = {
        {"full disk", fullDisk},
        {"limit on files", limitedFiles},
        {"folder of fixed files",
         [](FaultTrial &trial) { return readOnlyFolder(trial, Files::Fixed); }},
        {"folder without room for journals",
         [](FaultTrial &trial) { return readOnlyFolder(trial, Files::Changeable); }},
        {"locked database", lockedDatabase},
        {"document that can't be written", unwritableDocument}};
    int total = 0;
    for (const QJsonObject &step : TriedSteps()) {
        FaultTrial trial(step);
        for (const auto &[name, tryOne] : faults) {
            try {
                total += report(trial, name, tryOne(trial));
            } catch (const std::runtime_error &error) {
                throw std::runtime_error(trial.name().toStdString() + ", " + name + ": " +
                                         error.what());
            }
        }
    }
    return total;
}

} // namespace saldoro
