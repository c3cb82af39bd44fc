#pragma once

#include <QtGlobal>

namespace saldoro {

/** Whether a disk that has failed once goes on failing. */
enum class FaultSpan
{
    Once,
    FromThenOn
};

/**
 * A file layer of the engine that stands between it and the system's and fails on demand: counted
 * are the calls that write, flush, cut, open or delete a file. Waiting takes no time in it, so that
 * a time-out passes at once. One for the whole program, and the default layer once installed.
 */
namespace FaultFileLayer {

/** To be called before any database is opened. Throws std::runtime_error. */
void install();

/** From now on the @p call -th counted call fails, the first being 1. */
void arm(int call, FaultSpan span);
/** Nothing fails any more; true when something has failed since arm(). */
bool disarm();
/** What the first call that failed was to do, for reports. */
const char *struckCall();

/** Milliseconds that would have been waited since the last call of this function. */
qint64 takeWaited();

} // namespace FaultFileLayer

} // namespace saldoro
