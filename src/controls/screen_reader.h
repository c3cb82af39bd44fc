#pragma once

#include <QString>

class QAbstractItemView;
class QWidget;

namespace saldoro {

/** Names a control for code (object name), for screen readers (@p name, without the "&" of a
 *  mnemonic) and for the mouse (tool tip). */
void Describe(QWidget &control, const QString &objectName, const QString &name,
              const QString &hint);

/** Gives windows that are no dialogs the role of a window for screen readers, which the toolkit
 *  does not. Holds for windows made afterwards; needs the application object. */
void GiveWindowsTheirRole();

/** Makes what a screen reader selects in @p view, which has its model, the current row or cell; by
 *  itself the toolkit would show one and act on another. For views with a single selection. */
void FollowSelection(QAbstractItemView &view);

/** Tells screen readers that @p control has the focus, for a grid or list its current row, once
 *  the toolkit has told what it tells. Does nothing when the focus is elsewhere by then. */
void TellFocus(QWidget &control);

} // namespace saldoro
