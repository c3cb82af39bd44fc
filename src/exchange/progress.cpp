#include "exchange/progress.h"

#include "platform/console.h"

#include <chrono>

namespace saldoro {

using namespace Qt::StringLiterals;

namespace {
constexpr qsizetype LineWidth = 60;
constexpr qsizetype RowsPerLine = 1000;
const auto ProgramStart = std::chrono::steady_clock::now();
} // namespace

Progress::~Progress()
{
    if (m_isShown)
        PrintError(u'\r' + QString(LineWidth, u' ') + u'\r');
}

void Progress::show(qsizetype rows)
{
    if (rows % RowsPerLine != 0 || !IsErrorTerminal() ||
        std::chrono::steady_clock::now() - ProgramStart < std::chrono::seconds(1))
        return;
    m_isShown = true;
    const QString line = u"%1: %2 righe"_s.arg(m_step).arg(rows);
    PrintError(u'\r' + line.leftJustified(LineWidth, u' ', true));
}

} // namespace saldoro
