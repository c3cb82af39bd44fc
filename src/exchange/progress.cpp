#include "exchange/progress.h"

#include "platform/console.h"

#include <limits>

namespace saldoro {

using namespace Qt::StringLiterals;

namespace {
constexpr qint64 FirstMilliseconds = 1000;
constexpr qint64 EachMilliseconds = 200;
constexpr qsizetype LineWidth = 60;
} // namespace

Progress::Progress()
    : m_next(IsErrorTerminal() ? FirstMilliseconds : std::numeric_limits<qint64>::max())
{
    m_clock.start();
}

Progress::~Progress()
{
    if (m_isShown)
        PrintError(u'\r' + QString(LineWidth, u' ') + u'\r');
}

void Progress::show(const QString &what, qsizetype done, qsizetype whole)
{
    if (m_clock.elapsed() < m_next)
        return;
    m_next = m_clock.elapsed() + EachMilliseconds;
    m_isShown = true;
    const qsizetype percent = whole == 0 ? 100 : done * 100 / whole;
    PrintError(u'\r' + u"%1: %2 %"_s.arg(what).arg(percent).leftJustified(LineWidth, u' ', true));
}

} // namespace saldoro
