#include "exchange/progress.h"

#include "platform/console.h"

#include <limits>

namespace saldoro {

using namespace Qt::StringLiterals;

namespace {
constexpr qsizetype LineWidth = 60;
} // namespace

Progress::Progress()
    : m_next(IsErrorTerminal() ? 1000 : std::numeric_limits<qint64>::max())
{
    m_clock.start();
}

Progress::~Progress()
{
    if (m_isShown)
        PrintError(u'\r' + QString(LineWidth, u' ') + u'\r');
}

void Progress::show(const QString &step, const QString &table, qsizetype rows)
{
    if (m_clock.elapsed() < m_next)
        return;
    m_next = m_clock.elapsed() + 200;
    m_isShown = true;
    const QString line = u"%1 %2: %3 righe"_s.arg(step, table).arg(rows);
    PrintError(u'\r' + line.leftJustified(LineWidth, u' ', true));
}

} // namespace saldoro
