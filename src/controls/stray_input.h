#pragma once

namespace saldoro {

/**
 * What begins on one window ends there. The rest of a double click does nothing where it falls on
 * another window than its beginning, or on a pick list that has opened or uncovered something in
 * between. The same holds for a key with Alt that is pressed twice, and for two requests of the
 * window system to close (title bar, Alt+F4). The measure is the system's double-click interval.
 *
 * Begins to watch the application's windows; calls after the first do nothing. Needs the
 * application object.
 */
void WatchStrayInput();

} // namespace saldoro
