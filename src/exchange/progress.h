#pragma once

#include <QString>

#include <functional>
#include <utility>

namespace saldoro {

/** Shows how many rows of a step are done: on a terminal, once the program has run for a second, or
 *  to the watcher. */
class Progress
{
public:
    /** @param step such as "Lettura di Spese". */
    explicit Progress(QString step)
        : m_step(std::move(step))
    {
    }
    /** Takes the line away. */
    ~Progress();
    Q_DISABLE_COPY_MOVE(Progress)

    void show(qsizetype rows);

    /** Is told step and rows now and then. What it throws breaks the step off. */
    using Watcher = std::function<void(const QString &step, qsizetype rows)>;
    /** Puts @p watcher in the place of the terminal; an empty one brings that back. */
    static void setWatcher(Watcher watcher);

private:
    QString m_step;
    bool m_isShown = false;
};

} // namespace saldoro
