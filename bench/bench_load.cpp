#include "bare_reads.h"
#include "bench_archive.h"
#include "bench_tasks.h"
#include "overview/frm_principale.h"

namespace saldoro {

namespace {

void load(benchmark::State &state)
{
    ProgramValues values = BenchArchive(static_cast<int>(state.range(0)));
    FrmPrincipale form(values);
    form.load();
    form.show();
    for (auto round : state)
        form.load();
}

void readBare(benchmark::State &state)
{
    const ProgramValues &values = BenchArchive(static_cast<int>(state.range(0)));
    for (auto round : state)
        benchmark::DoNotOptimize(ReadMainScreenRows(values));
}

} // namespace

void AddLoad()
{
    AddTask("load", load, readBare);
}

} // namespace saldoro
