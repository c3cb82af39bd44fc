#pragma once

#include <QtGlobal>

#include <random>

namespace saldoro {

/** What a test's random values begin with: another number in each run, which the test tells, or the
 *  one that the environment gives to have a run again. */
inline unsigned RandomSeed()
{
    bool isGiven = false;
    const unsigned given = qEnvironmentVariable("SALDORO_SEED").toUInt(&isGiven);
    const unsigned seed = isGiven ? given : std::random_device{}();
    qInfo("SALDORO_SEED=%u", seed);
    return seed;
}

} // namespace saldoro
