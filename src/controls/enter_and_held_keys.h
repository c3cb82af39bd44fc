#pragma once

#include <QEvent>

namespace saldoro {

/** Whether @p event is a press of Return or of Enter, which do the same everywhere. */
bool IsEnter(const QEvent &event);

/** Starts to watch the keys, which a program that links this file does from its start. The call
 *  makes sure that it is linked. */
void WatchKeyPresses();

/**
 * Whether the key press that is being handled comes by itself, because the key is held down. What a
 * press has opened, or brought to the front, ignores such repetitions; message boxes never get one.
 *
 * The toolkit's own mark on a press, isAutoRepeat(), is not enough on X11. The first repetition
 * that a newly opened window gets comes without the mark, and that is the one that matters here.
 * If no window of the program saw the release, the next press has the mark although it is no
 * repetition. On X11 a repetition is a release followed by a press: either the release has the
 * mark, or both have the same time.
 */
bool IsKeyHeld();

} // namespace saldoro
