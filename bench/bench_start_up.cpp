#include "bench_archive.h"
#include "bench_tasks.h"

#include <QProcess>

namespace saldoro {

using namespace Qt::StringLiterals;

namespace {

void startProbe(benchmark::State &state, const QString &side)
{
    const ProgramValues &values = BenchArchive(static_cast<int>(state.range(0)));
    for (auto round : state) {
        if (QProcess::execute(QStringLiteral(START_PROBE), {side, values.ProjectCode}) != 0)
            state.SkipWithError("the window was not painted");
    }
}

} // namespace

void AddStartUp()
{
    AddTask(
        "start-up", [](benchmark::State &state) { startProbe(state, u"program"_s); },
        [](benchmark::State &state) { startProbe(state, u"bare"_s); });
}

} // namespace saldoro
