#pragma once

#include <QString>
#include <QStringList>

namespace saldoro {

/** How calls of the system go wrong. */
enum class CallFault
{
    Once,       ///< the one call fails, as a disk may that has a bad moment
    FromThenOn, ///< it fails and all calls after it
    Death,      ///< the same, half of what it was to write being written: when a process dies in a
                ///< call, no later one of it reaches the disk either
    FullDisk    ///< a write finds half of the room it needs, all later ones none; the rest works,
                ///< and so does writing over what a file holds
};

/** What has become of the calls. */
struct CallRecord
{
    /** The first call that went wrong and the file it was about, as "fdatasync Saldoro.mdb"; empty
     *  when none has. */
    QString struck;
    /** Files that got their name before their content was on the disk; when nothing went wrong also
     *  folders in which a file was renamed, or a journal deleted, and that were not flushed. */
    QStringList unflushed;
};

/**
 * Stands between this program, its libraries included, and the system for the calls that change a
 * file: opening for writing, writing, flushing, cutting, deleting, linking and renaming; and for
 * reading settings. The engine and the toolkit come through here both. Waiting takes no time, so
 * that a time-out passes at once.
 */
namespace FailingCalls {

/** From now on the @p call -th call that the fault applies to goes wrong, the first being 1; with 0
 *  none does. */
void arm(int call, CallFault fault);
/** False behind a write that found half of its room. */
bool isRoomLeft();
/** Nothing goes wrong any more. What has happened since arm(). */
CallRecord disarm();

} // namespace FailingCalls

} // namespace saldoro
