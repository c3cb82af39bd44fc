#pragma once

#include <QSize>
#include <QString>

class QWidget;

namespace saldoro {

/** The file of window sizes in the user's own configuration folder. */
QString WindowSizesFile();

/** From now on windows that SizeWindow() is given keep their sizes in @p fileName, an INI file of
 *  the program's own. Without it, as in tests, nothing is kept. */
void KeepWindowSizes(const QString &fileName);

/**
 * Gives a window the size that its user last left it with, or @p first before that; in either case
 * no more than its screen has room for beside the frame. A maximised window leaves the size that is
 * kept alone. The window is known by its object name.
 */
void SizeWindow(QWidget &window, QSize first);

} // namespace saldoro
