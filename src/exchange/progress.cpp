#include "exchange/progress.h"

#include "platform/console.h"

namespace saldoro {

using namespace Qt::StringLiterals;

namespace {
constexpr qsizetype LineWidth = 60;
const auto ProgramStart = std::chrono::steady_clock::now();
} // namespace

Progress::~Progress()
{
    if (m_isShown)
        PrintError(u'\r' + QString(LineWidth, u' ') + u'\r');
}

void Progress::show(qsizetype rows)
{
    const auto elapsed = std::chrono::steady_clock::now() - ProgramStart;
    if (elapsed < m_next || !IsErrorTerminal())
        return;
    m_next = elapsed + std::chrono::milliseconds(200);
    m_isShown = true;
    const QString line = u"%1: %2 righe"_s.arg(m_step).arg(rows);
    PrintError(u'\r' + line.leftJustified(LineWidth, u' ', true));
}

} // namespace saldoro
