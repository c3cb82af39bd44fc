#pragma once

#include <QEvent>

namespace saldoro {

/**
 * Tells key presses that come by themselves because a key is held down from those that somebody
 * makes. What a press has opened, or brought to the front, is to take no notice of the former.
 *
 * The toolkit's own mark on a press, isAutoRepeat(), is not enough. On X11 the first repetition
 * that reaches a window that has just opened comes without it, which is the very one that matters
 * here, and the first press after a release that no window of the program was told of bears it. But
 * X11 tells a repetition as a release and a press that follow each other, and the release bears the
 * mark or both the same time.
 */

/** Begins to watch the application's keys; calls after the first do nothing. Needs the application
 *  object. */
void WatchHeldKeys();

/** Whether the key press that is being handled is a repetition. */
bool IsKeyHeld();

/** Whether @p event, which is being handled, is a repetition of Enter. */
bool IsRepeatedEnter(const QEvent &event);

} // namespace saldoro
