#include "bench_archive.h"
#include "bench_payment.h"
#include "bench_tasks.h"

namespace saldoro {

namespace {

template <void (BenchPayment::*Remove)()>
void remove(benchmark::State &state)
{
    constexpr int allocations = 3;
    const int payments = static_cast<int>(state.range(0));
    BenchPayment payment(BenchArchive(payments), payments + 1, allocations);
    for (auto round : state) {
        state.PauseTiming();
        payment.put();
        state.ResumeTiming();
        (payment.*Remove)();
    }
}

} // namespace

void AddDelete()
{
    AddTask("delete", remove<&BenchPayment::remove>, remove<&BenchPayment::removeBare>);
}

} // namespace saldoro
