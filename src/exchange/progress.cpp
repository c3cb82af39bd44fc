#include "exchange/progress.h"

#include "platform/console.h"

#include <QElapsedTimer>

namespace saldoro {

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype LineWidth = 60;

/** Milliseconds since the first step began. */
qint64 elapsed()
{
    static const QElapsedTimer clock = [] {
        QElapsedTimer started;
        started.start();
        return started;
    }();
    return clock.elapsed();
}

} // namespace

Progress::Progress(const QString &step)
    : m_step(step)
{
    elapsed();
}

Progress::~Progress()
{
    if (m_isShown)
        PrintError(u'\r' + QString(LineWidth, u' ') + u'\r');
}

void Progress::show(qsizetype rows)
{
    if (elapsed() < m_next || !IsErrorTerminal())
        return;
    m_next = elapsed() + 200;
    m_isShown = true;
    const QString line = u"%1: %2 righe"_s.arg(m_step).arg(rows);
    PrintError(u'\r' + line.leftJustified(LineWidth, u' ', true));
}

} // namespace saldoro
