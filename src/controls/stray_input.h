#pragma once

namespace saldoro {

/**
 * What begins on one window ends there. Within the system's double-click interval these do nothing:
 * - the rest of a double click that falls on another window than its beginning, or behind the
 *   opening or closing of a pick list;
 * - a second press of a key with Alt that falls on another window;
 * - a second request of the window system to close a window (title bar, Alt+F4) that falls on
 *   another one, and a mouse button on any window behind a first request.
 *
 * The first call starts this for all windows of the application; later ones do nothing. Needs the
 * application object.
 */
void WatchStrayInput();

} // namespace saldoro
