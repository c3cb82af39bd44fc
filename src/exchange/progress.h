#pragma once

#include <QElapsedTimer>
#include <QString>

namespace saldoro {

/** Tells how far work has got once it takes more than a second, and only on a terminal. */
class Progress
{
public:
    Progress();
    /** Takes the line away. */
    ~Progress();
    Q_DISABLE_COPY_MOVE(Progress)

    void show(const QString &step, const QString &table, qsizetype rows);

private:
    QElapsedTimer m_clock;
    qint64 m_next; ///< milliseconds
    bool m_isShown = false;
};

} // namespace saldoro
