#pragma once

#include <QColor>

class QCoreApplication;

namespace saldoro {

/**
 * Sets what all windows of a program share: its name and that of its menu entry; Italian as the
 * default locale; the toolkit's own texts in Italian, where its translation is installed or built
 * in; the icon of the title bars, where the program has it as a resource; the windows' role for
 * screen readers; WatchStrayInput().
 */
void SetUpLook(QCoreApplication &application);

/** The colour @p percent of the way from @p from to @p to. */
QColor MixedColor(const QColor &from, const QColor &to, int percent);

} // namespace saldoro
