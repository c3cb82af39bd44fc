#pragma once

#include <QString>

namespace saldoro {

/** Tells on a terminal how many rows a step has come to, once all work takes more than a second. */
class Progress
{
public:
    /** @param step such as "Lettura di Spese". */
    explicit Progress(const QString &step);
    /** Takes the line away. */
    ~Progress();
    Q_DISABLE_COPY_MOVE(Progress)

    void show(qsizetype rows);

private:
    QString m_step;
    qint64 m_next = 1000; ///< milliseconds of all work at which to show the next line
    bool m_isShown = false;
};

} // namespace saldoro
