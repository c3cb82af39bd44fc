#pragma once

#include <QDateTime>
#include <QString>
#include <QStringList>

namespace saldoro {

/**
 * Starts a program, given by its archive path or path of the machine, and does not wait for it; its
 * window opens in the usual size and gets the focus. Returns false when it can't be started; throws
 * nothing. On Windows the arguments stand behind the program's name as they are, each after one
 * blank.
 */
bool StartDetached(const QString &program, const QStringList &arguments);

/** On Windows all that stands behind the program's name on its command line, verbatim, trailing
 *  blanks included. Elsewhere the arguments, joined by one blank. */
QString CommandLineTail(int argc, char *const argv[]);

/** The same of a whole command line. Its first word or quoted text is the program's name; the
 *  blanks behind that belong to neither. */
QString TailOfCommandLine(const QString &commandLine);

/** Lets a write beyond the process's limit of file sizes fail as one to a full disk does. The
 *  system would end the process. */
void LetLargeWritesFail();

/** File name of the running program without its extension. Needs the application object. */
QString ProgramName();

/** Last modification of the running program's file. Needs the application object. */
QDateTime ProgramFileTime();

} // namespace saldoro
