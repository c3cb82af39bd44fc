#include "platform/progress.h"

#include "platform/console.h"

#include <chrono>
#include <utility>

namespace saldoro {

using namespace Qt::StringLiterals;

namespace {
constexpr qsizetype lineWidth = 60;
constexpr qsizetype rowsPerLine = 1000;
const auto ProgramStart = std::chrono::steady_clock::now();

Progress::Watcher &currentWatcher()
{
    static Progress::Watcher watcher;
    return watcher;
}

} // namespace

void Progress::setWatcher(Watcher watcher)
{
    currentWatcher() = std::move(watcher);
}

Progress::Progress(QString step)
    : m_step(std::move(step))
{
    show(0);
}

Progress::~Progress()
{
    if (m_isShown)
        PrintError(u'\r' + QString(lineWidth, u' ') + u'\r');
}

void Progress::show(qsizetype rows)
{
    if (rows % rowsPerLine != 0)
        return;
    const QString state = rows == 0 ? m_step : u"%1: %2 righe"_s.arg(m_step).arg(rows);
    if (currentWatcher())
        return currentWatcher()(state);
    if (!IsErrorTerminal() ||
        std::chrono::steady_clock::now() - ProgramStart < std::chrono::seconds(1))
        return;
    m_isShown = true;
    PrintError(u'\r' + state.leftJustified(lineWidth, u' ', true));
}

} // namespace saldoro
