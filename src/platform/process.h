#pragma once

#include <QDateTime>
#include <QString>
#include <QStringList>

namespace saldoro {

/** Starts a program as a process of its own with a normal, focused window, and does not wait for
 *  it. @p program is an archive path. Returns false when it can't be started. */
bool StartDetached(const QString &program, const QStringList &arguments);

/** Everything that stands after the program's name on its command line, as one text, verbatim.
 *  Where the system hands over separate arguments they are joined by one blank. */
QString CommandLineTail(int argc, char *const argv[]);

/** File name of the running program without its extension. */
QString ProgramName();

/** Last modification of the running program's file. */
QDateTime ProgramFileTime();

} // namespace saldoro
