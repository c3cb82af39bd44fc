#include "player_process.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QJsonDocument>
#include <QMap>

#include <cerrno>
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

/** Longest silence of a player that is not stuck. */
constexpr qint64 patienceMicroseconds = 60'000'000;

/** Waits for output until @p deadline; false when there is none by then. */
bool waitForOutput(int pipe, const QElapsedTimer &clock, qint64 deadline)
{
    const qint64 left = deadline - clock.nsecsElapsed() / 1000;
    if (left <= 0)
        return false;
    pollfd wanted{pipe, POLLIN, 0};
    const timespec time{left / 1'000'000, left % 1'000'000 * 1000};
    return ppoll(&wanted, 1, &time, nullptr) > 0;
}

} // namespace

PlayerProcess::PlayerProcess(QString settings, QString projectCode)
    : m_settings(std::move(settings))
    , m_projectCode(std::move(projectCode))
{
}

/** The reading end of the player's output. */
int PlayerProcess::start(quint32 seed, int steps, qint64 &pid) const
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
    pid = ::fork();
    if (pid == 0) {
        ::dup2(ends[1], STDOUT_FILENO);
        ::execl(program.constData(), program.constData(), seedText.constData(),
                stepText.constData(), tail.constData(), nullptr);
        ::_exit(127);
    }
    ::close(ends[1]);
    return ends[0];
}

qint64 PlayerProcess::usualMicroseconds(const QString &step) const
{
    return m_usual.value(step, 60'000);
}

PlayerRun PlayerProcess::run(quint32 seed, int steps, const KillPlan &plan)
{
    PlayerRun result;
    qint64 pid = 0;
    const int pipe = start(seed, steps, pid);
    QElapsedTimer clock;
    clock.start();
    const auto killTime = [&plan](qint64 from, qint64 usual) {
        return from + static_cast<qint64>(plan.share * static_cast<double>(usual));
    };
    qint64 deadline = plan.step == KillPlan::FromStart
                          ? killTime(0, 4 * usualMicroseconds(startOfRun))
                          : patienceMicroseconds;
    bool planned = plan.step == KillPlan::FromStart;
    int announced = 0;
    qint64 begun = 0;
    QString beganWith = startOfRun;
    QByteArray text;
    const auto take = [&](const QByteArray &line) {
        const QJsonObject object = QJsonDocument::fromJson(line).object();
        result.lines += object;
        const qint64 now = clock.nsecsElapsed() / 1000;
        if (object.contains(u"step")) {
            begun = now;
            beganWith = object[u"step"].toString();
            if (announced++ == plan.step) {
                deadline = killTime(now, usualMicroseconds(beganWith));
                planned = true;
            }
        } else {
            const qint64 before = m_usual.value(beganWith, now - begun);
            m_usual[beganWith] = (3 * before + now - begun) / 4;
        }
    };
    const auto read = [&] {
        char buffer[65536];
        const ssize_t size = ::read(pipe, buffer, sizeof buffer);
        text.append(buffer, std::max<ssize_t>(size, 0));
        for (qsizetype end = 0; (end = text.indexOf('\n')) >= 0; text.remove(0, end + 1))
            take(text.first(end));
        return size > 0;
    };
    bool more = true;
    while (more && waitForOutput(pipe, clock, deadline))
        more = read();
    result.killed = more;
    if (more) {
        ::kill(static_cast<pid_t>(pid), SIGKILL);
        while (read()) { // what it had said by then
        }
    }
    ::close(pipe);
    int status = 0;
    ::waitpid(static_cast<pid_t>(pid), &status, 0);
    if (result.killed && !planned)
        throw std::runtime_error("the player stood still");
    // An end of its own accord just before the kill is not a kill.
    if (WIFEXITED(status)) {
        result.killed = false;
        result.exitStatus = WEXITSTATUS(status);
    } else if (!result.killed) {
        result.exitStatus = 128 + WTERMSIG(status);
    }
    return result;
}

} // namespace saldoro
