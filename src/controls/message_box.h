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

/** The user's answer; boxes with only OK give Ok. */
enum class MessageAnswer
{
    Ok,
    Yes,
    No
};

/**
 * Shows a modal message box under the application's title and waits for the answer. Closing a
 * question by Esc or its frame answers No. A key that is held down since before answers nothing.
 * This is the one way to a message box.
 */
MessageAnswer ShowMessage(MessageKind kind, const QString &text);

/** Asks a question with Yes and No, No being preset, under the application's title; true when the
 *  answer is Yes. */
bool ChiediConferma(const QString &question);

/** Answers a box in the user's place. */
using MessageAnswerer = std::function<MessageAnswer(MessageKind kind, const QString &text)>;

/** Puts @p answerer in the place of the real boxes (an empty one brings them back) and returns the
 *  one that was there before. For tests and for runs without a person. */
MessageAnswerer ReplaceMessageBoxes(MessageAnswerer answerer);

} // namespace saldoro
