#pragma once

#include <QString>

#include <functional>

namespace saldoro {

/** Shows which step of a long work is being done and how many rows of it are: on a terminal, once
 *  the program has run for a second, or to the watcher. */
class Progress
{
public:
    /** Shows the beginning of @p step, such as "Lettura di Spese". Throws as show(). */
    explicit Progress(QString step);
    /** Takes the line away. */
    ~Progress();
    Q_DISABLE_COPY_MOVE(Progress)

    /** To be called for each row: shows only multiples of 1000. Throws what the watcher throws. */
    void show(qsizetype rows);

    /** Is told the state, such as "Lettura di Spese: 2000 righe". What it throws breaks the work
     *  off, and passes as errors do. */
    using Watcher = std::function<void(const QString &state)>;
    /** Puts @p watcher in the place of the terminal; an empty one brings that back. */
    static void setWatcher(Watcher watcher);

private:
    QString m_step;
    bool m_isShown = false;
};

} // namespace saldoro
