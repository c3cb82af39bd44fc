#include "bare_reads.h"
#include "bench_archive.h"
#include "bench_close.h"
#include "bench_payment.h"
#include "controls/flex_grid.h"
#include "office/contract_list.h"
#include "overview/frm_principale.h"
#include "store/contract_folders.h"

#include <QApplication>
#include <QEventLoop>
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

int contractsOf(const State &state)
{
    return paymentsOf(state) / 50;
}

/** The list of contracts on the screen, until its last line stands. */
void contracts(State &state)
{
    const QString root = BenchContracts(contractsOf(state));
    FlexGrid grid(FlexGrid::SelectRows);
    ContractList list(grid.table());
    grid.resize(900, 500);
    grid.show();
    QEventLoop loop;
    QObject::connect(&list, &ContractList::progressed, &loop, [&loop](int done, int all) {
        if (done == all)
            loop.quit();
    });
    for (auto round : state) {
        list.read(root);
        loop.exec();
    }
}

void contractsBare(State &state)
{
    const QString root = BenchContracts(contractsOf(state));
    for (auto round : state) {
        for (const QString &code : ContractCodes(root)) {
            const QString folder = ContractFolder(root, code);
            benchmark::DoNotOptimize(
                BareFile(folder + u"/Appalto.mdb"_s).readAll("SELECT * FROM UltimaPerVariante"));
            benchmark::DoNotOptimize(
                BareFile(folder + u"/Saldoro.mdb"_s).readAll("SELECT * FROM Fatture"));
        }
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
    addTask("contracts", contracts, contractsBare);
    return benchmark::RunSpecifiedBenchmarks() == 0 ? 1 : 0;
}
