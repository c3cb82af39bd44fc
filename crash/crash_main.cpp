// Kills the program at random instants of random sessions, and looks at what it left each time.
//   saldoro_crash [--kills N] [--seed N]

#include "archive_setting.h"
#include "player_process.h"
#include "rtf_reader.h"
#include "session_model.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QDir>
#include <QJsonDocument>
#include <QTemporaryDir>

#include <algorithm>
#include <cstdio>
#include <memory>
#include <optional>
#include <random>
#include <stdexcept>

using namespace saldoro;
using namespace Qt::StringLiterals;

namespace {

/** Kills on one archive before a new one is taken, so that it does not grow too large. */
constexpr int killsOfRound = 25;
/** So many kills that some have to fall between two writes. */
constexpr int tellingKills = 30;

struct Tally
{
    int kills = 0;
    int whileWriting = 0; ///< kills with a step under way
    int halfway = 0;      ///< kills that left a state between the first and the last of a step
};

/** One archive that is killed upon again and again. */
class Round
{
public:
    Round(quint32 seed, const QString &folder);

    void run(int kills, Tally &tally);

private:
    bool runOnce(int steps, const KillPlan &plan, Tally &tally);
    void check(const PlayerRun &run, Tally &tally);
    KillPlan randomPlan(int steps);
    [[noreturn]] void fail(const QString &what) const;

    std::mt19937 m_random;
    QTemporaryDir m_folder;
    /** The archive as it was before the run that is on, and as the run left it. */
    std::unique_ptr<TestArchive> m_before = std::make_unique<TestArchive>();
    std::unique_ptr<TestArchive> m_found = std::make_unique<TestArchive>();
    ArchiveBuilder m_live;
    PlayerProcess m_player;
    std::optional<ArchiveSetting> m_setting;
    QString m_last;
};

Round::Round(quint32 seed, const QString &folder)
    : m_random(seed)
    , m_folder(folder + u"/crash-XXXXXX"_s)
    , m_live(m_folder.path(), m_before->values().ProjectCode)
    , m_player(m_folder.path() + u"/settings"_s, m_live.values().ProjectCode)
{
    qputenv("XDG_CONFIG_HOME", (m_folder.path() + u"/settings"_s).toLocal8Bit());
    m_setting.emplace(m_folder.path());
    FillProject(*m_before, 3);
    CopyProject(m_before->values(), m_live.values());
}

void Round::run(int kills, Tally &tally)
{
    for (int left = kills; left > 0;) {
        const int steps = 1 + static_cast<int>(m_random() % 4);
        left -= runOnce(steps, randomPlan(steps), tally) ? 1 : 0;
    }
    runOnce(0, {1, 0}, tally); // once more to the end: it opens, closes and ends well
}

/** Six kills of seven fall into a step, the rest anywhere, start-up included. */
KillPlan Round::randomPlan(int steps)
{
    std::uniform_real_distribution<double> share(0, 1.05);
    const auto limit = static_cast<quint32>(steps);
    const int step =
        m_random() % 7 == 0 ? KillPlan::FromStart : static_cast<int>(m_random() % limit);
    return {step, share(m_random)};
}

bool Round::runOnce(int steps, const KillPlan &plan, Tally &tally)
{
    const quint32 seed = static_cast<quint32>(m_random());
    m_last = u"session %1 of %2 steps, kill after %3 of step %4"_s.arg(seed)
                 .arg(steps)
                 .arg(plan.share)
                 .arg(plan.step);
    const PlayerRun run = m_player.run(seed, steps, plan);
    if (!run.killed && run.exitStatus != 0)
        fail(u"the program ended with status %1"_s.arg(run.exitStatus));
    if (!run.killed && (run.lines.isEmpty() || !run.lines.last().contains(u"done")))
        fail(u"the session did not come to its end"_s);
    check(run, tally);
    tally.kills += run.killed ? 1 : 0;
    std::swap(m_before, m_found);
    return run.killed;
}

/** Everything that was confirmed is there, and of the step that was cut short a beginning. */
void Round::check(const PlayerRun &run, Tally &tally)
{
    // A copy is looked at: the program itself has to recover the files that the kill left.
    CopyProject(m_live.values(), m_found->values());
    SessionModel model(*m_before);
    QList<ArchiveState> possible = {ReadState(*m_before)};
    for (const QJsonObject &line : run.lines) {
        m_last += u"\n  "_s + QString::fromUtf8(QJsonDocument(line).toJson(QJsonDocument::Compact));
        if (line.contains(u"error"))
            fail(u"the program reported an error"_s);
        if (line.contains(u"shown") &&
            line[u"shown"].toInt() !=
                possible.last().payments.count(u'\n') + 1 - possible.last().payments.isEmpty())
            fail(u"the main screen does not list what is in the ledger"_s);
        if (line.contains(u"step"))
            possible = model.run(line);
        else if (line.contains(u"done"))
            possible = {possible.last()};
    }
    if (const QStringList faults = DatabaseFaults(m_found->values()); !faults.isEmpty())
        fail(faults.join(u'\n'));
    const ArchiveState found = ReadState(*m_found);
    for (const QByteArray &document : found.documents)
        ReadRtf(document);
    const qsizetype place = possible.indexOf(found);
    if (place < 0)
        fail(u"the archive is in none of %1 possible states. The last:\n"_s.arg(possible.size()) +
             Difference(found, possible.last()) + u"\nThe first:\n"_s +
             Difference(found, possible.first()));
    if (run.killed && possible.size() > 1)
        ++tally.whileWriting;
    if (place > 0 && place + 1 < possible.size())
        ++tally.halfway;
}

void Round::fail(const QString &what) const
{
    throw std::runtime_error((what + u"\nin "_s + m_last).toStdString());
}

/** Whether the kills fell where they can do harm, so that they tell something. */
bool report(const Tally &tally)
{
    const bool isTelling =
        tally.kills < tellingKills || (tally.whileWriting > 0 && tally.halfway > 0);
    std::printf("crash: %s%d kills, %d of them while writing, %d between two writes: %s\n",
                isTelling ? "" : "FAILED: ", tally.kills, tally.whileWriting, tally.halfway,
                isTelling ? "nothing lost" : "they miss the writes");
    return isTelling;
}

} // namespace

int main(int argc, char *argv[])
{
    // What is only looked at needs no disk.
    if (QDir(u"/dev/shm"_s).exists())
        qputenv("TMPDIR", "/dev/shm");
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("QT_LOGGING_RULES", "*.warning=false"); // what the off-screen platform can't do
    QCoreApplication application(argc, argv);
    QCommandLineParser options;
    options.addOption({u"kills"_s, u"How many kills."_s, u"number"_s, u"30"_s});
    options.addOption({u"seed"_s, u"First of the seeds."_s, u"number"_s,
                       QString::number(std::random_device()())});
    options.process(application);
    const int kills = options.value(u"kills"_s).toInt();
    quint32 seed = options.value(u"seed"_s).toUInt();
    Tally tally;
    if (kills <= 0) {
        std::printf("crash: FAILED: --kills takes a number from 1 on\n");
        return 1;
    }
    std::printf("crash: %d kills from seed %u\n", kills, seed);
    for (; tally.kills < kills; ++seed) {
        try {
            Round round(seed, QCoreApplication::applicationDirPath());
            round.run(std::min(killsOfRound, kills - tally.kills), tally);
        } catch (const std::exception &error) {
            std::printf("crash: FAILED after %d kills, in the round of seed %u: %s\n", tally.kills,
                        seed, error.what());
            return 1;
        }
    }
    return report(tally) ? 0 : 1;
}
