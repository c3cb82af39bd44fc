#pragma once

class QWidget;

namespace saldoro {

/** Gives windows that are no dialogs the role of a window for screen readers, which the toolkit
 *  does not. Holds for windows made afterwards; needs the application object. */
void GiveWindowsTheirRole();

/** Tells screen readers that @p control has the focus, for a grid or list its current row, once
 *  the toolkit has told what it tells. Does nothing when the focus is elsewhere by then. */
void TellFocus(QWidget &control);

} // namespace saldoro
