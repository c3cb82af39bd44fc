#pragma once

#include <QString>

namespace saldoro {

/** Writes a text as it stands to the standard output or error stream, in UTF-8. A console shows
 *  its accented letters. On Windows an error is shown in a box when there is no error stream, as
 *  for a program that is started by its icon. False when the stream, such as a file on a full
 *  disk, did not take it. */
[[nodiscard]] bool PrintOut(const QString &text);
bool PrintError(const QString &text);

/** Whether the standard error stream goes to a terminal. */
bool IsErrorTerminal();

} // namespace saldoro
