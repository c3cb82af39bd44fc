#pragma once

#include <QString>

#include <utility>

namespace saldoro {

/** Tells on a terminal how many rows a step has come to, once all work takes more than a second. */
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

private:
    QString m_step;
    bool m_isShown = false;
};

} // namespace saldoro
