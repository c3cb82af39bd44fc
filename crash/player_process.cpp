#include "player_process.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QJsonDocument>

#include <array>
#include <csignal>
#include <fcntl.h>
#include <poll.h>
#include <stdexcept>
#include <sys/wait.h>
#include <unistd.h>
#include <utility>

namespace saldoro {

using namespace Qt::StringLiterals;

namespace {

const QString startOfRun = u"start"_s;

/** Longest run of a player that is not stuck. */
constexpr qint64 patienceMicroseconds = 60'000'000;

/** How long a step takes as long as none of its kind has been seen. */
constexpr qint64 firstGuess = 60'000;

} // namespace

/** Listens to one run of the player, and learns from what it says when to kill it. */
class PlayerProcess::Watch
{
public:
    Watch(int pipe, const KillPlan &plan, QMap<QString, qint64> &usual)
        : m_pipe(pipe)
        , m_plan(plan)
        , m_usual(usual)
    {
        m_clock.start();
        if (plan.step == KillPlan::FromStart)
            plant(4 * m_usual.value(startOfRun, firstGuess)); // up to the first steps
    }

    /** Until the time has come, or the player has gone by itself: then false. */
    bool listen()
    {
        bool more = true;
        while (more && waitForOutput())
            more = read();
        return more;
    }
    /** Takes what the player had said by its end. */
    void drain()
    {
        while (read()) {
        }
    }
    /** Whether the time was chosen, and not just too long in coming. */
    bool isPlanned() const { return m_planned; }
    const QList<QJsonObject> &lines() const { return m_lines; }

private:
    qint64 now() const { return m_clock.nsecsElapsed() / 1000; }

    /** The kill falls into the given time from now. */
    void plant(qint64 usual)
    {
        m_deadline = now() + static_cast<qint64>(m_plan.share * static_cast<double>(usual));
        m_planned = true;
    }

    bool waitForOutput() const
    {
        const qint64 left = m_deadline - now();
        if (left <= 0)
            return false;
        pollfd wanted{m_pipe, POLLIN, 0};
        const timespec time{left / 1'000'000, left % 1'000'000 * 1000};
        return ppoll(&wanted, 1, &time, nullptr) > 0;
    }

    bool read()
    {
        std::array<char, 65536> buffer{};
        const ssize_t size = ::read(m_pipe, buffer.data(), buffer.size());
        if (size > 0)
            m_text.append(buffer.data(), size);
        for (qsizetype end = 0; (end = m_text.indexOf('\n')) >= 0; m_text.remove(0, end + 1))
            take(QJsonDocument::fromJson(m_text.first(end)).object());
        return size > 0;
    }

    void take(const QJsonObject &line)
    {
        m_lines += line;
        if (line.contains(u"step")) {
            m_begun = now();
            m_step = line[u"step"].toString();
            if (m_announced++ == m_plan.step)
                plant(m_usual.value(m_step, firstGuess));
        } else {
            const qint64 took = now() - m_begun;
            m_usual[m_step] = (3 * m_usual.value(m_step, took) + took) / 4;
        }
    }

    int m_pipe;
    KillPlan m_plan;
    QMap<QString, qint64> &m_usual;
    QElapsedTimer m_clock;
    qint64 m_deadline = patienceMicroseconds;
    bool m_planned = false;
    int m_announced = 0;
    qint64 m_begun = 0;
    QString m_step = startOfRun;
    QByteArray m_text;
    QList<QJsonObject> m_lines;
};

PlayerProcess::PlayerProcess(QString settings, QString projectCode)
    : m_settings(std::move(settings))
    , m_projectCode(std::move(projectCode))
{
}

/** The reading end of the player's output. */
int PlayerProcess::start(quint32 seed, int steps)
{
    int ends[2];
    if (pipe2(ends, O_CLOEXEC) != 0)
        throw std::runtime_error("no pipe");
    const QByteArray program =
        (QCoreApplication::applicationDirPath() + u"/saldoro_crash_player"_s).toLocal8Bit();
    const QByteArray seedText = QByteArray::number(seed);
    const QByteArray stepText = QByteArray::number(steps);
    const QByteArray tail = (u"TUSMQDE7W"_s + m_projectCode).toLocal8Bit();
    qputenv("XDG_CONFIG_HOME", m_settings.toLocal8Bit());
    m_process = ::fork();
    if (m_process == 0) {
        ::dup2(ends[1], STDOUT_FILENO);
        ::execl(program.constData(), program.constData(), seedText.constData(),
                stepText.constData(), tail.constData(), nullptr);
        ::_exit(127);
    }
    ::close(ends[1]);
    return ends[0];
}

PlayerRun PlayerProcess::run(quint32 seed, int steps, const KillPlan &plan)
{
    const int pipe = start(seed, steps);
    Watch watch(pipe, plan, m_usual);
    PlayerRun result;
    result.killed = watch.listen();
    if (result.killed) {
        ::kill(m_process, SIGKILL);
        watch.drain();
    }
    ::close(pipe);
    const bool stoodStill = result.killed && !watch.isPlanned();
    end(result);
    if (stoodStill)
        throw std::runtime_error("the player stood still");
    result.lines = watch.lines();
    return result;
}

/** Waits for the player's end, and says whether the kill came before its own. */
void PlayerProcess::end(PlayerRun &run) const
{
    int status = 0;
    ::waitpid(m_process, &status, 0);
    if (WIFEXITED(status)) {
        run.killed = false;
        run.exitStatus = WEXITSTATUS(status);
    } else if (!run.killed) {
        run.exitStatus = 128 + WTERMSIG(status);
    }
}

} // namespace saldoro
