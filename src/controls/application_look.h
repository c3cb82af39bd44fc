#pragma once

class QCoreApplication;

namespace saldoro {

/** Gives a program with windows its name, the toolkit's own texts in Italian where its translation
 *  is installed or built in, and the icon of its title bars, where it has that as a resource. */
void SetUpLook(QCoreApplication &application);

} // namespace saldoro
