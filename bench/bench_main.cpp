#include "bare_reads.h"
#include "bench_archive.h"
#include "bench_close.h"
#include "bench_payment.h"
#include "overview/frm_principale.h"

#include <QApplication>
#include <QProcess>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>
#include <string>

// Each task is registered twice for every number of payments: "task/program/n" is what the program
// does, "task/bare/n" its floor, the same rows and bytes with the engine's and the system's own
// calls. Both leave the archive as it was.

namespace {

using namespace saldoro;
using namespace Qt::StringLiterals;
using benchmark::State;

int paymentsOf(const State &state)
{
    return static_cast<int>(state.range(0));
}

/** From the start of the process to the painted main screen. */
void startUp(State &state, const QString &side)
{
    const ProgramValues &values = BenchArchive(paymentsOf(state));
    for (auto round : state) {
        if (QProcess::execute(QStringLiteral(START_PROBE), {side, values.ProjectCode}) != 0)
            state.SkipWithError("the window was not painted");
    }
}

void load(State &state)
{
    ProgramValues values = BenchArchive(paymentsOf(state));
    FrmPrincipale form(values);
    form.load();
    form.show();
    for (auto round : state)
        form.load();
}

void loadBare(State &state)
{
    const ProgramValues &values = BenchArchive(paymentsOf(state));
    for (auto round : state)
        benchmark::DoNotOptimize(ReadMainScreenRows(values));
}

/** A confirmed new payment with 20 allocations. */
template <void (BenchPayment::*Save)()>
void save(State &state)
{
    BenchPayment payment(BenchArchive(paymentsOf(state)), paymentsOf(state) + 1, 20);
    for (auto round : state) {
        (payment.*Save)();
        state.PauseTiming();
        payment.clear();
        state.ResumeTiming();
    }
}

/** A payment with 3 allocations and a mandate note. */
template <void (BenchPayment::*Remove)()>
void remove(State &state)
{
    BenchPayment payment(BenchArchive(paymentsOf(state)), paymentsOf(state) + 1, 3);
    for (auto round : state) {
        state.PauseTiming();
        payment.put();
        state.ResumeTiming();
        (payment.*Remove)();
    }
}

void addTask(const std::string &name, void (*program)(State &), void (*bare)(State &))
{
    const auto add = [&name](const char *side, void (*task)(State &), int payments) {
        benchmark::RegisterBenchmark((name + side).c_str(), task)
            ->Arg(payments)
            ->Unit(benchmark::kMillisecond)
            ->UseRealTime();
    };
    // One after the other, so that a busy moment of the machine falls on both sides.
    for (const int payments : {10000, 30000}) {
        add("/program", program, payments);
        add("/bare", bare, payments);
    }
}

} // namespace

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 1;

    const QTemporaryDir folder;
    SetBenchFolder(folder.path());
    addTask(
        "start-up", [](State &state) { startUp(state, u"program"_s); },
        [](State &state) { startUp(state, u"bare"_s); });
    addTask("load", load, loadBare);
    addTask("save", save<&BenchPayment::save>, save<&BenchPayment::saveBare>);
    addTask("delete", remove<&BenchPayment::remove>, remove<&BenchPayment::removeBare>);
    addTask("close", CloseMainScreen, CloseBare);
    return benchmark::RunSpecifiedBenchmarks() == 0 ? 1 : 0;
}
