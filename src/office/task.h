#pragma once

#include <QString>

#include <functional>

class QWidget;

namespace saldoro {

/** Does something that the user has asked for. An error is shown in a message box, and the result
 *  is false. */
bool Attempt(const std::function<void()> &action);

/** As Attempt(), with a window over @p parent that shows the Progress of the action and lets the
 *  user cancel it, once it takes more than a moment; false, too, when it is cancelled. */
bool AttemptLong(QWidget &parent, const QString &title, const std::function<void()> &action);

} // namespace saldoro
