#pragma once

#include <QString>

namespace saldoro {

/** Writes a text to the standard output or error stream, in UTF-8. On Windows a console shows its
 *  accented letters, and an error without an error stream, as in a program that was started by its
 *  icon, is shown in a box. False when the stream, such as a file on a full disk, did not take
 *  the text. */
[[nodiscard]] bool PrintOut(const QString &text);
bool PrintError(const QString &text);

/** The text with a mark in place of each character that no screen shows, line feeds apart: a text
 *  from elsewhere must not steer the terminal that it is shown on. */
QString Harmless(const QString &text);

/** Whether the standard error stream goes to a terminal. */
bool IsErrorTerminal();

} // namespace saldoro
