#pragma once

class QCoreApplication;

namespace saldoro {

/** Gives a program with windows its name, the toolkit's own texts in Italian where its translation
 *  is installed or built in, and the icon of its title bars, where it has that as a resource;
 *  then what holds for all its windows: their role for screen readers, and that what begins on one
 *  ends there (see WatchStrayInput). */
void SetUpLook(QCoreApplication &application);

} // namespace saldoro
