#pragma once

#include <QEvent>

namespace saldoro {

/**
 * Tells key presses that come by themselves because a key is held down from those that somebody
 * makes. What a press has opened, or brought to the front, is to take no notice of the former.
 *
 * The system's own mark is not enough. A release that comes while no window of the program has the
 * keys is never told, and the next press of that key is then marked as a repetition; some window
 * systems forget the mark now and then.
 */

/** Begins to watch the application's keys; calls after the first do nothing. Needs the application
 *  object. */
void WatchHeldKeys();

/** Whether the key press that is being handled is a repetition. */
bool IsKeyHeld();

/** Whether @p event, which is being handled, is a repetition of Enter. */
bool IsRepeatedEnter(const QEvent &event);

} // namespace saldoro
