#pragma once

#include <QSize>
#include <QString>

class QWidget;

namespace saldoro {

/** A length in twips, of which an inch has 1,440, as pixels of the screen that @p widget is on. */
int TwipsToPixels(int twips, const QWidget &widget);
QSize TwipsToPixels(QSize twips, const QWidget &widget);

/** Keeps a window above all windows that are not topmost, for its lifetime. The window keeps its
 *  size and moves to the top-left corner of the screen, so callers centre it right afterwards; a
 *  maximised one stays where it is. To be called before the window is first shown; later calls only
 *  move it. */
void SetTopMost(QWidget &window);

/** Centres a window on its screen: half the screen's size minus half the window's, which is
 *  negative for a window larger than the screen. A window that is not shown yet has no frame, and
 *  is centred once more when it has one. A maximised window is left alone. */
void CentraForm(QWidget &form);

/** Shows a window above the others and makes it the active one, also when it was minimised. */
void BringToFront(QWidget &form);

/** The file of window sizes in the SettingsFolder(). */
QString WindowSizesFile();

/** From now on SizeWindow() keeps the sizes of windows in @p fileName, an INI file of the program's
 *  own. Programs call it once when they start; without it, as in tests, nothing is kept. */
void KeepWindowSizes(const QString &fileName);

/** Gives a window, known by its object name, the size that its user last left it with, at first the
 *  size @p first in pixels; in either case no more than its screen has room for beside the frame. A
 *  window that is maximised when it closes does not change the size that is kept. */
void SizeWindow(QWidget &window, QSize first);

} // namespace saldoro
