#pragma once

#include <QColor>

class QCoreApplication;

namespace saldoro {

/** Gives a program with windows its name, the toolkit's own texts in Italian where its translation
 *  is installed or built in, and the icon of its title bars, where it has that as a resource;
 *  then what holds for all its windows: their role for screen readers, and that what begins on one
 *  ends there (see WatchStrayInput). */
void SetUpLook(QCoreApplication &application);

/** The colour @p percent of the way from @p from to @p to. */
QColor MixedColor(const QColor &from, const QColor &to, int percent);

} // namespace saldoro
