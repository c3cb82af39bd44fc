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

    void show(const QString &what, qsizetype done, qsizetype whole);

private:
    QElapsedTimer m_clock;
    qint64 m_next;
    bool m_isShown = false;
};

} // namespace saldoro
