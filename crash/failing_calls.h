#pragma once

#include <QString>
#include <QtGlobal>

namespace saldoro {

/** How calls of the system go wrong. */
enum class CallFault
{
    Once,       ///< the one call fails, as a disk may that has a bad moment
    FromThenOn, ///< it fails and all calls after it
    FullDisk,   ///< a write finds half of the room it needs, all later ones none; the rest works
    Kill        ///< the process dies in the call, half of what it was to write being written
};

/**
 * Stands between this program, its libraries included, and the system for the calls that change a
 * file: opening for writing, writing, flushing, cutting, deleting, linking and renaming. The engine
 * and the toolkit come through here both. Waiting takes no time, so that a time-out passes at once.
 */
namespace FailingCalls {

/** From now on the @p call -th call that the fault applies to goes wrong, the first being 1. */
void arm(int call, CallFault fault);
/** Nothing goes wrong any more; true when something has since arm(). */
bool disarm();
/** What the first call that went wrong was to do and to which file: "sync Saldoro.mdb". */
QString struckCall();

/** Milliseconds that would have been waited since the last call of this function. */
qint64 takeWaited();

} // namespace FailingCalls

} // namespace saldoro
