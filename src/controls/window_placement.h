#pragma once

class QWidget;

namespace saldoro {

/** A length in twips, of which an inch has 1,440, as pixels of the screen that @p widget is on. */
int TwipsToPixels(int twips, const QWidget &widget);

/** Keeps a window above all windows that are not topmost, for its lifetime. Its size is kept; it
 *  moves to the top-left corner of the screen, so callers centre it right afterwards. To be called
 *  before the window is shown for the first time; a maximised one stays where it is. */
void SetTopMost(QWidget &window);

/** Centres a window on its screen: half the screen's size minus half the window's, which is
 *  negative for a window larger than the screen. A window that is not shown yet has no frame to
 *  count in; it is centred once more when it has. A maximised window has no place of its own and is
 *  left alone. */
void CentraForm(QWidget &form);

/** Shows a window above the others and makes it the active one, also out of its minimised state. */
void BringToFront(QWidget &form);

} // namespace saldoro
