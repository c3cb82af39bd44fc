#include "bench_archive.h"
#include "bench_payment.h"
#include "bench_tasks.h"

namespace saldoro {

namespace {

template <void (BenchPayment::*Save)()>
void save(benchmark::State &state)
{
    constexpr int allocations = 20;
    const int payments = static_cast<int>(state.range(0));
    BenchPayment payment(BenchArchive(payments), payments + 1, allocations);
    for (auto round : state) {
        (payment.*Save)();
        state.PauseTiming();
        payment.clear();
        state.ResumeTiming();
    }
}

} // namespace

void AddSave()
{
    AddTask("save", save<&BenchPayment::save>, save<&BenchPayment::saveBare>);
}

} // namespace saldoro
