#include "storage_faults.h"

#include "fault_file_layer.h"
#include "fault_trial.h"

#include <cstdio>
#include <stdexcept>

namespace saldoro {

using namespace Qt::StringLiterals;

namespace {

/** How often the calls of one work failed, and how often that did not matter. */
struct Count
{
    int faults = 0;
    int absorbed = 0;
};

/** The work with its @p call -th call failing; false once it has fewer. */
bool tryCall(FaultTrial &trial, int call, FaultSpan span, Count &count)
{
    trial.renew();
    FaultFileLayer::arm(call, span);
    const Report report = trial.perform();
    const bool struck = FaultFileLayer::disarm();
    try {
        trial.check(report);
        if (!struck) {
            Require(report.text.isEmpty(), u"it fails untouched"_s, report);
            return false;
        }
        ++count.faults;
        // The engine may do without a call that only tidies up; the work is whole then.
        if (report.text.isEmpty()) {
            ++count.absorbed;
            return true;
        }
        Require(report.isDatabaseError, u"not an error of the database"_s, report);
        Require(report.file.endsWith(u".mdb") && report.text.contains(report.file),
                u"the report does not name the file"_s, report);
        Require(!report.problem.isEmpty() && report.text.size() > report.problem.size(),
                u"the report says too little"_s, report);
    } catch (const std::runtime_error &error) {
        throw std::runtime_error(u"%1, call %2 (%3) fails %4: "_s.arg(trial.name())
                                     .arg(call)
                                     .arg(QString::fromLatin1(FaultFileLayer::struckCall()))
                                     .arg(span == FaultSpan::Once ? u"once"_s : u"for good"_s)
                                     .toStdString() +
                                 error.what());
    }
    return true;
}

} // namespace

int TryStorageFaults()
{
    FaultFileLayer::install();
    int faults = 0;
    for (const QJsonObject &step : TriedSteps()) {
        FaultTrial trial(step);
        Count count;
        for (const FaultSpan span : {FaultSpan::Once, FaultSpan::FromThenOn}) {
            for (int call = 1; tryCall(trial, call, span, count);)
                ++call;
        }
        std::printf("faults: %s: %d failing calls, %d of them without harm to the work\n",
                    qPrintable(trial.name()), count.faults, count.absorbed);
        if (count.faults == 0)
            throw std::runtime_error(trial.name().toStdString() +
                                     ": the engine does not go through the layer that fails");
        faults += count.faults;
    }
    return faults;
}

} // namespace saldoro
