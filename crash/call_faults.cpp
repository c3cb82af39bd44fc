#include "failing_calls.h"
#include "faults.h"

#include <QSet>

#include <cstdio>
#include <stdexcept>

namespace saldoro {

using namespace Qt::StringLiterals;

namespace {

struct Attempt
{
    bool hasStruck = false;
    Report report;
};

Attempt attempt(FaultTrial &trial, int call, CallFault fault)
{
    trial.renew();
    if (fault == CallFault::Kill) {
        const auto report = trial.performApart([&] { FailingCalls::arm(call, fault); });
        return {!report, report.value_or(Report{u"killed"_s, {}, {}})};
    }
    FailingCalls::arm(call, fault);
    const Report report = trial.perform();
    return {FailingCalls::disarm(), report};
}

void check(FaultTrial &trial, CallFault fault, const Attempt &made)
{
    trial.check(made.report);
    if (!made.hasStruck)
        Require(made.report.text.isEmpty(), u"it fails untouched"_s, made.report);
    // The engine may do without a call that only tidies up; the work is whole then.
    else if (fault == CallFault::FullDisk && !made.report.text.isEmpty())
        RequireReport(made.report, {u"disco"_s, u"scrittura"_s});
    else if (fault != CallFault::Kill && !made.report.text.isEmpty())
        RequireReport(made.report, {{}});
}

/** Every call of the work in turn. Adds what has gone wrong to @p struck; returns how many. */
int tryAll(FaultTrial &trial, CallFault fault, const char *name, QSet<QString> &struck)
{
    for (int call = 1;; ++call) {
        try {
            const Attempt made = attempt(trial, call, fault);
            struck += FailingCalls::struckCall();
            check(trial, fault, made);
            if (!made.hasStruck)
                return call - 1;
        } catch (const std::runtime_error &error) {
            throw std::runtime_error(u"call %1 (%2), %3: "_s.arg(call)
                                         .arg(FailingCalls::struckCall(), QLatin1StringView(name))
                                         .toStdString() +
                                     error.what());
        }
    }
}

} // namespace

int TryCallFaults(FaultTrial &trial)
{
    QSet<QString> struck;
    int faults = 0;
    for (const auto &[fault, name] :
         {std::pair(CallFault::Once, "fails once"),
          std::pair(CallFault::FromThenOn, "fails for good"),
          std::pair(CallFault::FullDisk, "full disk"), std::pair(CallFault::Kill, "kills")})
        faults += tryAll(trial, fault, name, struck);
    // A change is safe once it has been flushed, the journal before it.
    for (const QString &database : trial.work().databases) {
        for (const QString &file : {database, database + u"-journal"_s})
            Require(struck.contains(u"sync "_s + file), file + u" is not flushed"_s, {});
    }
    std::printf("faults: %s: %d calls gone wrong\n", qPrintable(trial.work().name), faults);
    return faults;
}

} // namespace saldoro
