// Random input against slow references.
//   saldoro_fuzz [--seconds N] [--seed N] [--target NAME [--case SEED]]
// Every case has a seed of its own, which --case runs again; one that showed a fault once is kept
// in the table below and runs first from then on.

#include "fuzzer.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QDir>
#include <QElapsedTimer>

#include <cstdio>
#include <exception>
#include <vector>

using namespace saldoro;
using namespace Qt::StringLiterals;

namespace {

struct Target
{
    const char *name;
    void (*run)(Random &);
    int share; ///< cases in a row, so that quick targets get more of them
    qint64 cases = 0;
};

std::vector<Target> allTargets()
{
    return {{"number", FuzzNumber, 200}, {"amount", FuzzAmount, 200},
            {"like", FuzzLike, 200},     {"criterion", FuzzCriterion, 200},
            {"find", FuzzFind, 1},       {"sql", FuzzSql, 200},
            {"date", FuzzDate, 200},     {"datebox", FuzzDateBox, 5},
            {"ini", FuzzIni, 20},        {"rtf", FuzzRtf, 50}};
}

struct KeptCase
{
    const char *target;
    quint64 seed;
};

/** Cases that once told the program and its reference apart. */
constexpr KeptCase keptCases[] = {
    {"amount", 13643359525445284690U},   {"amount", 18359340204918669677U},
    {"criterion", 4996329703343035885U}, {"criterion", 6091646887234793197U},
    {"find", 13915952638675311015U},     {"ini", 17282077054788978823U}};

bool runCase(Target &target, quint64 seed)
{
    try {
        Random random(seed);
        target.run(random);
        ++target.cases;
        return true;
    } catch (const std::exception &error) {
        std::printf("fuzz: FAILED: --target %s --case %llu: %s\n", target.name,
                    static_cast<unsigned long long>(seed), error.what());
        return false;
    }
}

bool runKept(std::vector<Target> &targets)
{
    bool good = true;
    for (const KeptCase &kept : keptCases) {
        for (Target &target : targets) {
            if (qstrcmp(target.name, kept.target) == 0)
                good = runCase(target, kept.seed) && good;
        }
    }
    return good;
}

/** Random cases of all targets in turn until the time is over or a case fails. */
bool runRandom(std::vector<Target> &targets, quint64 seed, qint64 milliseconds)
{
    std::printf("fuzz: from seed %llu\n", static_cast<unsigned long long>(seed));
    std::mt19937_64 seeds(seed);
    QElapsedTimer clock;
    clock.start();
    bool good = true;
    while (good && clock.elapsed() < milliseconds) {
        for (Target &target : targets) {
            for (int turn = 0; good && turn < target.share; ++turn)
                good = runCase(target, seeds());
        }
    }
    return good;
}

} // namespace

int main(int argc, char *argv[])
{
    if (QDir(u"/dev/shm"_s).exists())
        qputenv("TMPDIR", "/dev/shm");
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    QCommandLineParser options;
    options.addOption({u"seconds"_s, u"How long."_s, u"number"_s, u"4"_s});
    options.addOption({u"seed"_s, u"First of the seeds."_s, u"number"_s,
                       QString::number(std::random_device()())});
    options.addOption({u"target"_s, u"Only this one."_s, u"name"_s});
    options.addOption({u"case"_s, u"Only the case of this seed."_s, u"number"_s});
    options.process(application);
    std::vector<Target> targets = allTargets();
    if (options.isSet(u"target"_s))
        std::erase_if(targets, [&](const Target &target) {
            return QString::fromLatin1(target.name) != options.value(u"target"_s);
        });
    const qint64 milliseconds = options.value(u"seconds"_s).toLongLong() * 1000;
    if (targets.empty() || milliseconds <= 0) {
        std::printf("fuzz: FAILED: no such target, or no time\n");
        return 1;
    }
    if (options.isSet(u"case"_s))
        return runCase(targets.front(), options.value(u"case"_s).toULongLong()) ? 0 : 1;

    const quint64 seed = options.value(u"seed"_s).toULongLong();
    const bool good = runKept(targets) && runRandom(targets, seed, milliseconds);
    for (const Target &target : targets)
        std::printf("fuzz: %-10s %lld cases\n", target.name, static_cast<long long>(target.cases));
    return good ? 0 : 1;
}
