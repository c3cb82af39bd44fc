#pragma once

#include <QDateTime>
#include <QString>
#include <QStringList>

namespace saldoro {

/**
 * Starts a program, given by its archive path, and lets it run by itself; its window opens in the
 * usual size and gets the focus. Returns false when it can't be started; throws nothing.
 * Where the system hands over one command line, the arguments follow the program joined by one
 * blank and otherwise exactly as given.
 */
bool StartDetached(const QString &program, const QStringList &arguments);

/**
 * Everything that stands after the program's name on its command line, as one text, verbatim to
 * its end, trailing blanks included. Where the system hands over separate arguments they are
 * joined by one blank.
 */
QString CommandLineTail(int argc, char *const argv[]);

/** The same for a whole command line as one text: its first word or quoted text is the program's
 *  name, the blanks behind it only part it from the tail. */
QString TailOfCommandLine(const QString &commandLine);

/** File name of the running program without its extension. Needs the application object. */
QString ProgramName();

/** Last modification of the running program's file. Needs the application object. */
QDateTime ProgramFileTime();

} // namespace saldoro
