#pragma once

#include <QString>
#include <QStringList>

#include <functional>

class QWidget;

namespace saldoro {

/** Does something that the user has asked for. An error is told in a message box and given up;
 *  false then. */
bool Attempt(const std::function<void()> &action);

/** Goes on with a long task, of which @p state says how far it is. Throws when it is to be given
 *  up. */
using TaskStep = std::function<void(const QString &state)>;

/** As Attempt(), with a window that shows how far the task is and lets the user cancel it, once it
 *  takes more than a moment. @p task calls its argument now and then; reading and writing rows of
 *  tables does so by itself. */
bool AttemptLong(QWidget &parent, const QString &title,
                 const std::function<void(const TaskStep &)> &task);

/** Paths as the system writes them, a line each. */
QString NativePaths(const QStringList &paths);

} // namespace saldoro
