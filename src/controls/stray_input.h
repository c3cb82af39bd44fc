#pragma once

namespace saldoro {

/**
 * What begins on one window ends there. The rest of a double click does nothing when it falls on
 * another window than its beginning did, or when a pick list has opened or closed in between. The
 * second of two presses of a key with Alt, and of two requests by the window system to close a
 * window (title bar, Alt+F4), does nothing when it falls on another window; right after such a
 * request a mouse button does nothing on any window. The measure is the system's double-click
 * interval.
 *
 * The first call starts this for all windows of the application; later ones do nothing. Needs the
 * application object.
 */
void WatchStrayInput();

} // namespace saldoro
