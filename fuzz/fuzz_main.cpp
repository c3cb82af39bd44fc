// Random input against slow references.
//   saldoro_fuzz SECONDS          all targets in turn, from a seed of chance
//   saldoro_fuzz TARGET CASE      one case again

#include "fuzzer.h"

#include <QApplication>
#include <QElapsedTimer>

#include <cstdio>
#include <exception>

using namespace saldoro;

namespace {

struct Target
{
    const char *name;
    void (*run)(Random &);
    int share; ///< cases in a row, so that quick targets get more of them
};

constexpr Target targets[] = {{"amount", FuzzAmount, 200},
                              {"date", FuzzDate, 200},
                              {"datebox", FuzzDateBox, 5},
                              {"csv", FuzzCsv, 100},
                              {"rtf", FuzzRtf, 50}};

bool runCase(const Target &target, quint64 seed)
{
    try {
        Random random(seed);
        target.run(random);
        return true;
    } catch (const std::exception &error) {
        std::printf("fuzz: FAILED: saldoro_fuzz %s %llu: %s\n", target.name,
                    static_cast<unsigned long long>(seed), error.what());
        return false;
    }
}

/** Random cases of all targets in turn until the time is over or a case fails. */
bool runRandom(qint64 milliseconds)
{
    std::mt19937_64 seeds(std::random_device{}());
    QElapsedTimer clock;
    clock.start();
    int turns = 0;
    for (; clock.elapsed() < milliseconds; ++turns) {
        for (const Target &target : targets) {
            for (int left = target.share; left > 0; --left) {
                if (!runCase(target, seeds()))
                    return false;
            }
        }
    }
    std::printf("fuzz: %d turns through all targets\n", turns);
    return turns > 0;
}

} // namespace

int main(int argc, char *argv[])
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    if (argc == 2)
        return runRandom(QByteArray(argv[1]).toLongLong() * 1000) ? 0 : 1;
    for (const Target &target : targets) {
        if (argc == 3 && qstrcmp(argv[1], target.name) == 0)
            return runCase(target, QByteArray(argv[2]).toULongLong()) ? 0 : 1;
    }
    std::printf("fuzz: SECONDS, or TARGET and CASE\n");
    return 1;
}
