#pragma once

#include <QString>

#include <functional>

namespace saldoro {

/** The kinds of message box that the program shows. */
enum class MessageKind
{
    Information, ///< information sign, OK
    Critical,    ///< stop sign, OK
    Question     ///< no sign, Yes and No, No preset
};

/**
 * Shows a modal message box under the application's title, waits for the answer and returns whether
 * it was Yes. Esc or closing the box answers No to a question; the underlined letters answer also
 * without Alt. A key that was down before the box came answers nothing (see IsKeyHeld). All message
 * boxes are shown by this function, except PrintError()'s on Windows.
 */
bool ShowMessage(MessageKind kind, const QString &text);

/** Asks a question with Yes and No, of which No is preset; true when the answer is Yes. */
bool ChiediConferma(const QString &question);

/** Answers a box in the user's place; true for Yes. */
using MessageAnswerer = std::function<bool(MessageKind kind, const QString &text)>;

/** From now on @p answerer answers instead of real boxes; an empty one brings them back. Returns
 *  the one before. For tests and for runs without a person. */
MessageAnswerer ReplaceMessageBoxes(MessageAnswerer answerer);

} // namespace saldoro
