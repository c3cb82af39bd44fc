#pragma once

#include <QString>

namespace saldoro {

/** How calls of the system go wrong. */
enum class CallFault
{
    Once,       ///< the one call fails, as a disk may that has a bad moment
    FromThenOn, ///< it fails and all calls after it
    Death,      ///< the same, half of what it was to write being written: when a process dies in a
                ///< call, no later one of it reaches the disk either
    FullDisk    ///< a write finds half of the room it needs, all later ones none; the rest works
};

/**
 * Stands between this program, its libraries included, and the system for the calls that change a
 * file: opening for writing, writing, flushing, cutting, deleting, linking and renaming. The engine
 * and the toolkit come through here both. Waiting takes no time, so that a time-out passes at once.
 */
namespace FailingCalls {

/** From now on the @p call -th call that the fault applies to goes wrong, the first being 1. */
void arm(int call, CallFault fault);
/** Nothing goes wrong any more. What the first call since arm() that went wrong was and the file it
 *  was about, as "fdatasync Saldoro.mdb"; empty when none has. */
QString disarm();

} // namespace FailingCalls

} // namespace saldoro
