#pragma once

#include <QString>

#include <functional>

class QWidget;

namespace saldoro {

/** Keeps Progress out of the terminal that a window may have been started from. */
void HideProgress();

/** Does something that the user has asked for. An error is shown in a message box, and the result
 *  is false. */
bool Attempt(const std::function<void()> &action);

/** As Attempt(). Once the action takes more than a moment, a window over @p parent shows its
 *  Progress and lets the user cancel it; the result is then false, too. Then HideProgress(). */
bool AttemptLong(QWidget &parent, const QString &title, const std::function<void()> &action);

} // namespace saldoro
