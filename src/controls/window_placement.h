#pragma once

#include <QSize>
#include <QString>

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

/** The file of window sizes in the user's own configuration folder. */
QString WindowSizesFile();

/** From now on windows that SizeWindow() is given keep their sizes in @p fileName, an INI file of
 *  the program's own. Without it, as in tests, nothing is kept. Written by main() alone. */
void KeepWindowSizes(const QString &fileName);

/**
 * Gives a window the size that its user last left it with, or @p first before that; in either case
 * no more than its screen has room for beside the frame. A maximised window leaves the size that is
 * kept alone. The window is known by its object name.
 */
void SizeWindow(QWidget &window, QSize first);

} // namespace saldoro
